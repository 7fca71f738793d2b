#include "hires/waveform.h"

#include "hires/exact_math.h"
#include "hires/harmonic_sums.h"

#include <cmath>
#include <iterator>
#include <numbers>

namespace {

double GetSquare(int harmonic) {
    return harmonic % 2 != 0 ? 4 / (std::numbers::pi * harmonic) : 0;
}

double GetTriangle(int harmonic) {
    if (harmonic % 2 == 0)
        return 0;
    const double size = 8 / (std::numbers::pi * std::numbers::pi * harmonic * harmonic);
    return harmonic % 4 == 1 ? size : -size;
}

double GetSaw(int harmonic) {
    const double size = 2 / (std::numbers::pi * harmonic);
    return harmonic % 2 != 0 ? size : -size;
}

/// With every second one turned round, pulses stand in the middle of their cycles, whole from the first on.
double GetPulse(int harmonic) {
    return harmonic % 2 != 0 ? -1 : 1;
}

double GetSquarePeak(int harmonics) {
    const int odd = (harmonics + 1) / 2;
    return 0.25 / odd;
}

double GetTrianglePeak(int /*harmonics*/) {
    return 0.25;
}

double GetSawPeak(int harmonics) {
    return 0.5 - 0.5 / (harmonics + 1);
}

/// What partial sums of a square and of a saw come down to and rise to (Wilbraham and Gibbs).
constexpr double ManyPeak = 1.1789797;

/// In the order of their codes.
constexpr HiresWaveform Waveforms[] = {
    {nullptr, nullptr, nullptr, 1, 0, false},
    {GetSquare, GetSquarePeak, SumSquare, 4 / std::numbers::pi, 4096, false},
    {GetTriangle, GetTrianglePeak, nullptr, 1, 4096, false},
    {GetSaw, GetSawPeak, SumSaw, ManyPeak, 4096, false},
    {GetPulse, nullptr, SumPulse, 1.5, 256, true},
};

} // namespace

const HiresWaveform* HiresWaveform::Find(unsigned int code) {
    return code < std::size(Waveforms) ? &Waveforms[code] : nullptr;
}

int HiresWaveform::CountHarmonics(double partOfRate) const {
    const double most = sum ? 1 << 30 : mostInTables;
    return static_cast<int>(partOfRate > 0 ? std::fmin(std::ceil(0.5 / partOfRate) - 1, most) : most);
}

double HiresWaveform::FindPeak(int harmonics) const {
    if (IsSine())
        return 1;
    if (isPulse)
        return harmonics;
    if (sum && harmonics > mostInTables)
        return ManyPeak;
    const auto phase = static_cast<std::uint64_t>(RoundToBits(getPeakPlace(harmonics), 62)) << 2;
    double most = 0;
    for (int k = 1; k <= harmonics; ++k)
        most += getAmplitude(k) * ExactSine(static_cast<std::uint64_t>(k) * phase);
    return most;
}
