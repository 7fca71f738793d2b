#include "hires/steady_sine.h"

#include "hires/exact_math.h"
#include "sound/kernels/kernels.h"

namespace {

constexpr std::uint64_t Quarter = std::uint64_t{1} << 62;

std::int32_t GetSine(std::uint64_t phase, double amplitude) {
    return static_cast<std::int32_t>(RoundToBits(amplitude * ExactSine(phase), HiresUnityBits));
}

} // namespace

HiresSteadySine::HiresSteadySine(std::uint64_t perFrame, double peak) : amplitude(peak), increment(perFrame) {
    for (std::size_t i = 0; i < HiresBlockFrames; ++i) {
        sines[i] = GetSine(i * increment, 1);
        cosines[i] = GetSine(i * increment + Quarter, 1);
    }
}

void HiresSteadySine::Add(HiresSums& sums) {
    const LTurn turn{sines.data(), cosines.data(), GetSine(phase, amplitude),
                     GetSine(phase + Quarter, amplitude)};
    Kernels().addTurned(sums.data(), turn, HiresBlockFrames);
    phase += HiresBlockFrames * increment;
}
