#include "app/window/frequency_setting.h"

#include "sys/desktop/settings.h"

#include <cstdlib>

namespace {

constexpr const char* Section = "settings";
constexpr const char* StepKey = "frequency increment step"; // a count of semitones, or a text in Hz

} // namespace

FrequencyStep ReadFrequencyStep() {
    return {.bySemitones = LUserSettingGet(Section, "semitone increment", true),
            .semitones = LUserSettingGet(Section, StepKey, 1),
            .hz = std::strtof(LUserSettingGetText(Section, StepKey, "1.0").c_str(), nullptr)};
}
