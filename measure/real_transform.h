#pragma once

#include <complex>
#include <cstddef>
#include <memory>
#include <vector>

/// Half of a spectrum, from 0 Hz to half the rate.
using Bins = std::vector<std::complex<double>>;

/// The Fourier transform of so many samples, a power of two from 4 on, into half as many bins and one. Its
/// tables are made once for a process: the first of a size takes several times as long. Thread: one at a
/// time.
class RealTransform {
public:
    explicit RealTransform(std::size_t size);
    ~RealTransform();

    void Transform(Bins& bins, const std::vector<double>& samples);

private:
    struct Tables;
    std::unique_ptr<Tables> tables;
};
