#include "sound/fixed_point.h"
#include "sound/kernels/kernel_set.h"

namespace KERNEL_ISA {

namespace {

template <int Channels>
void ApplyGainLineTo(int* out, const int* in, int frames, int gain, int step) {
    for (int i = 0; i < frames; ++i)
        for (int c = 0; c < Channels; ++c)
            out[i * Channels + c] = SplitProduct(in[i * Channels + c], gain + i * step);
}

} // namespace

int GetPeak(const int* samples, int count) {
    int largest = 0, smallest = 0;
    for (int i = 0; i < count; ++i) {
        largest = samples[i] > largest ? samples[i] : largest;
        smallest = samples[i] < smallest ? samples[i] : smallest;
    }
    const int negated = WrapSubtract(0, smallest);
    return largest > negated ? largest : negated;
}

void ApplyGainLine(int* out, const int* in, int frames, int channels, int gain, int step) {
    if (channels == 1)
        ApplyGainLineTo<1>(out, in, frames, gain, step);
    else if (channels == 2)
        ApplyGainLineTo<2>(out, in, frames, gain, step);
    else
        for (int i = 0; i < frames; ++i)
            for (int c = 0; c < channels; ++c)
                out[i * channels + c] = SplitProduct(in[i * channels + c], gain + i * step);
}

} // namespace KERNEL_ISA
