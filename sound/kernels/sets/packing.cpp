#include "sound/fixed_point.h"
#include "sound/kernels/kernel_set.h"
#include "sound/sample_format.h"

namespace KERNEL_ISA {

namespace {

template <int Channels>
bool PackChannels(int* samples, int frames, int shift, const LChannelSamples& negated) {
    const int half = shift == 0 ? 0 : 1 << (shift - 1);
    int excess = 0; // of all samples together
    for (int i = 0; i < frames; ++i) {
        for (int c = 0; c < Channels; ++c) {
            int& sample = samples[i * Channels + c];
            sample = WrapAdd(sample, half) >> shift;
            const int turned = WrapSubtract(0, sample);
            const auto packed = static_cast<std::int16_t>(turned);
            excess |= turned ^ packed;
            negated.first[c * negated.distance + i] = packed;
        }
    }
    return excess == 0;
}

} // namespace

void Widen(int* out, const std::int16_t* in, int count) {
    for (int i = 0; i < count; ++i)
        out[i] = LSF16::In(in[i]);
}

void Narrow(std::int16_t* out, const int* in, int count) {
    for (int i = 0; i < count; ++i)
        out[i] = LSF16::Out(in[i]);
}

bool Pack(int* samples, int frames, int shift, const LChannelSamples& negated) {
    return negated.channels == 1 ? PackChannels<1>(samples, frames, shift, negated)
                                 : PackChannels<2>(samples, frames, shift, negated);
}

} // namespace KERNEL_ISA
