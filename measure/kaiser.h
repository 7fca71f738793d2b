#pragma once

#include <cstddef>
#include <vector>

/// The Kaiser window at `x` of -1..1, its middle being 1. The larger `beta`, the smaller are its side lobes
/// and the wider its middle.
double GetKaiser(double beta, double x);

/// The magnitude of its spectrum `bins` away from the middle, those of a transform as long as it is.
double GetKaiserResponse(double beta, double bins);

/// So many values of it, an even count, beginning at -1 and without the last one: as a Fourier transform
/// takes them.
std::vector<double> MakeKaiserWindow(double beta, std::size_t count);
