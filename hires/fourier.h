#pragma once

#include <vector>

struct HiresComplex {
    double real = 0, imaginary = 0;
};

/// Puts in the place of each values[n] the sum over all k of values[k] * e^(2 pi i n k / count), of which
/// every machine makes the same. The count is a power of two, 2^16 at most.
void AddUpHarmonics(std::vector<HiresComplex>& values);
