#pragma once

#include "hires/file_kind.h"
#include "hires/quantizer.h"

#include <cstdint>

/// Brings samples to what is stored.
class HiresPacker {
public:
    explicit HiresPacker(const HiresFileFormat& format);

    /// Rounds them, and adds the dither; what is left stays in the highest of the 32 bits.
    void Round(const std::int32_t* samples, int count, std::int32_t* out);
    /// Writes them as well, one after the other, little-endian: those bits, or the nearest float, full scale
    /// being 1.
    void Pack(const std::int32_t* samples, int count, char* out);

private:
    HiresSamples kind;
    HiresQuantizer quantizer;
};
