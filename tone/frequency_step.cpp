#include "sys/desktop/settings.h"
#include "tone/tone_items.h"

#include <cmath>
#include <cstdlib>

namespace {

constexpr double SemitoneRatio = 1.0594630943592953; // 2^(1/12)
constexpr double MinHz = 0.0;
constexpr double LowestRaisedHz = 0.01; // nothing multiplies out of 0 Hz
constexpr const char* Section = "settings";
constexpr const char* StepKey = "frequency increment step"; // a count of semitones, or a text in Hz

bool StepsBySemitones() {
    return LUserSettingGet(Section, "semitone increment", true);
}

double GetSemitonesRatio() {
    return std::pow(SemitoneRatio, LUserSettingGet(Section, StepKey, 1));
}

double GetHzStep() {
    std::string text;
    LUserSettingGetString(Section, StepKey, "1.0", text);
    return std::strtof(text.c_str(), nullptr);
}

} // namespace

void AdjustIncreaseFrequencyValueHz(double& hz) {
    if (hz >= MaxSteppedHz)
        return;
    if (StepsBySemitones())
        hz = (hz < LowestRaisedHz ? LowestRaisedHz : hz) * GetSemitonesRatio();
    else
        hz += GetHzStep();
    if (hz >= MaxSteppedHz)
        hz = MaxSteppedHz;
}

void AdjustDecreaseFrequencyValueHz(double& hz) {
    if (hz <= MinHz)
        return;
    if (StepsBySemitones())
        hz /= GetSemitonesRatio();
    else
        hz -= GetHzStep();
    if (hz <= MinHz)
        hz = MinHz;
}
