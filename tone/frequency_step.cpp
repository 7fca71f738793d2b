#include "tone/frequency_step.h"

#include <cmath>

namespace {

constexpr double SemitoneRatio = 1.0594630943592953; // 2^(1/12)
constexpr double MinHz = 0.0;
constexpr double LowestRaisedHz = 0.01; // nothing multiplies out of 0 Hz

double GetRatio(const FrequencyStep& step) {
    return std::pow(SemitoneRatio, step.semitones);
}

} // namespace

void AdjustIncreaseFrequencyValueHz(double& hz, const FrequencyStep& step) {
    if (hz >= MaxSteppedHz)
        return;
    if (step.bySemitones)
        hz = (hz < LowestRaisedHz ? LowestRaisedHz : hz) * GetRatio(step);
    else
        hz += step.hz;
    if (hz >= MaxSteppedHz)
        hz = MaxSteppedHz;
}

void AdjustDecreaseFrequencyValueHz(double& hz, const FrequencyStep& step) {
    if (hz <= MinHz)
        return;
    if (step.bySemitones)
        hz /= GetRatio(step);
    else
        hz -= step.hz;
    if (hz <= MinHz)
        hz = MinHz;
}
