#include "hires/waveform.h"

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

/// In the order of their codes. The most that partial sums of a square reach is its first one, of a saw the
/// Wilbraham-Gibbs constant.
constexpr HiresWaveform Waveforms[] = {{nullptr, 1, false},
                                       {GetSquare, 4 / std::numbers::pi, false},
                                       {GetTriangle, 1, false},
                                       {GetSaw, 1.17898, false},
                                       {GetPulse, 1.5, true}};

} // namespace

const HiresWaveform* HiresWaveform::Find(unsigned int code) {
    return code < std::size(Waveforms) ? &Waveforms[code] : nullptr;
}
