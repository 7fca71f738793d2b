#pragma once

#include "hires/file_kind.h"

#include <cstdint>

/// Writes samples one after the other, little-endian: the highest bits of each, or the nearest float, full
/// scale being 1.
void PackSamples(HiresSamples kind, const std::int32_t* samples, int count, char* out);
