// Built once for every instruction set, each time in the namespace KERNEL_ISA. Functions of other headers
// that are used here are forced inline: the linker could otherwise keep a copy of them that needs the newer
// instructions.

#include "sound/fixed_point.h"
#include "sound/stages/kernels.h"

namespace KERNEL_ISA {

namespace {

int GetPeak(const int* samples, int count) {
    int largest = 0, smallest = 0;
    for (int i = 0; i < count; ++i) {
        largest = samples[i] > largest ? samples[i] : largest;
        smallest = samples[i] < smallest ? samples[i] : smallest;
    }
    const int negated = WrapSubtract(0, smallest);
    return largest > negated ? largest : negated;
}

template <int Channels>
void ApplyGainLineTo(int* out, const int* in, int frames, int gain, int step) {
    for (int i = 0; i < frames; ++i)
        for (int c = 0; c < Channels; ++c)
            out[i * Channels + c] = SplitProduct(in[i * Channels + c], gain + i * step);
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

/// The sum of 32 products. 16-bit factors, so that two products fit one multiply-add instruction.
[[gnu::always_inline]] inline int Dot32(const std::int16_t* a, const std::int16_t* b) {
    int sum = 0;
    for (int t = 0; t < 32; ++t)
        sum += a[t] * b[t];
    return sum;
}

void Convolve(const LPolyphaseRun& run, int phase, const std::int16_t* negated, int* out, int stride,
              int frames) {
    for (int i = 0; i < frames; ++i) {
        const std::int16_t* row = run.rows + phase * LPolyphaseRun::RowLength;
        const int* middle = run.middle + phase * 2;
        // Near full scale, 32 bits don't hold these.
        const std::int64_t a = -(Dot32(row, negated) + std::int64_t{middle[0]} * negated[31]);
        const std::int64_t b = -(Dot32(row + 32, negated + 32) + std::int64_t{middle[1]} * negated[32]);
        // Kept quirk: each half is halved before they are added, which drops a bit of each.
        out[i * stride] = WrapToInt(((a >> 1) + (b >> 1) + run.rounding) >> run.shift);
        negated += run.stepWhole;
        phase += run.stepPart;
        if (phase >= run.phases) {
            phase -= run.phases;
            ++negated;
        }
    }
}

} // namespace

extern const LKernels kernels;
const LKernels kernels = {
    .instructionSet = SONVIRE_ISA_NAME,
    .getPeak = GetPeak,
    .applyGainLine = ApplyGainLine,
    .convolve = Convolve,
};

} // namespace KERNEL_ISA
