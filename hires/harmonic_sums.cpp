#include "hires/harmonic_sums.h"

#include "hires/exact_math.h"
#include "hires/sine_integral.h"

#include <cmath>
#include <numbers>

namespace {

constexpr std::uint64_t Half = std::uint64_t{1} << 63, Quarter = Half / 2;

/// An angle x of -pi..pi, with what is made of it and of M x; M is the harmonics and a half.
struct Angle {
    Angle(std::uint64_t phase, int harmonics)
        : half(static_cast<std::int64_t>(phase) >> 1),
          x(std::ldexp(static_cast<double>(half), -63) * (2 * std::numbers::pi)),
          m(harmonics + 0.5),
          phaseOfM(static_cast<std::uint64_t>(half) * (2 * static_cast<std::uint64_t>(harmonics) + 1)) {}

    double GetHalfSine() const { return ExactSine(static_cast<std::uint64_t>(half)); }

    std::int64_t half; ///< x / 2 as a phase
    double x, m;
    std::uint64_t phaseOfM; ///< M x
};

/// The sum of sin(k x) / k. It is the integral of (sin(M t) / sin(t / 2) - 1) / 2 from 0 to x; where 1 / t
/// stands for 1 / (2 sin(t / 2)) that is the sine integral, and what they differ by leaves a term in 1 / M,
/// and others too small to count.
double SumSines(std::uint64_t phase, int harmonics) {
    if (phase > Half)
        return -SumSines(0 - phase, harmonics);
    if (phase == Half)
        return 0;
    const Angle at(phase, harmonics);
    const double sine = ExactSine(at.phaseOfM), cosine = ExactSine(at.phaseOfM + Quarter);
    const double differ = at.x < 1e-3 ? at.x / 24 : 1 / (2 * at.GetHalfSine()) - 1 / at.x;
    return HiresSineIntegral::Get().LookUp(at.m * at.x, sine, cosine) - at.x / 2 - differ * cosine / at.m;
}

} // namespace

double SumSquare(std::uint64_t phase, int harmonics) {
    const double odd = SumSines(phase, harmonics) - SumSines(phase + Half, harmonics);
    return odd * (2 / std::numbers::pi);
}

double SumSaw(std::uint64_t phase, int harmonics) {
    return SumSines(phase + Half, harmonics) * (-2 / std::numbers::pi);
}

double SumPulse(std::uint64_t phase, int harmonics) {
    const Angle at(phase + Half, harmonics);
    return at.half == 0 ? harmonics : ExactSine(at.phaseOfM) / (2 * at.GetHalfSine()) - 0.5;
}
