#pragma once

#include "hires/file_kind.h"

/// Packs samples one behind the other, little-endian, each in `GetBits(kind)` / 8 bytes. Integers keep the
/// highest of their bits: they have been rounded to these before.
void PackSamples(HiresSamples kind, const std::int32_t* samples, int count, char* out);
