#include "app/window/status_fields.h"

#include "app/desktop/product.h"
#include "app/setting_names.h"
#include "app/window/command_ids.h"
#include "app/window/time_text.h"
#include "play/play_device.h"

#include <algorithm>
#include <strings.h>

namespace {

constexpr LStatusItem Items[] = {
    {ControlStatusText, LStatusKind::Text, "", ProductAndVersion},
    {ControlPosition, LStatusKind::Text, "Position and length", "00:00.0 / 00:00.0"},
    {ControlLevels, LStatusKind::Level, "Level"},
    {ControlDevice, LStatusKind::Chooser, "Output device", "[Default Sound Out]"},
    {ControlVolume, LStatusKind::Slider, "Volume"},
};

/// The volumes that differ: silence, and samples as they are.
constexpr int LeastVolume = -36;
constexpr int MostVolume = 13;

bool IsSameName(const std::string& name, const std::string& other) {
    return strcasecmp(name.c_str(), other.c_str()) == 0;
}

} // namespace

std::span<const LStatusItem> StatusFields::GetItems() {
    return Items;
}

void StatusFields::Init() {
    window.SetText(ControlStatusText, ProductAndVersion);
    SetDevices({});
    window.SetRange(ControlVolume, LeastVolume, MostVolume);
    window.SetValue(ControlVolume, ReadPlayVolume().GetDecibels());
    ShowVolume(ReadPlayVolume().GetDecibels());
}

void StatusFields::SetDevices(const std::vector<std::string>& names) {
    std::vector<std::string> choices = {LSoundPlayDevice::DefaultName};
    choices.insert(choices.end(), names.begin(), names.end());
    const std::string chosen = Setting::OutDevice.Get();
    auto found = std::find_if(choices.begin(), choices.end(),
                              [&chosen](const std::string& name) { return IsSameName(name, chosen); });
    if (found == choices.end() && !chosen.empty())
        found = choices.insert(found, chosen);
    const int value = found == choices.end() ? 0 : static_cast<int>(found - choices.begin());
    window.SetChoices(ControlDevice, choices);
    window.SetValue(ControlDevice, value);
}

void StatusFields::ShowPosition(LSoundTime position) {
    const bool ends = length.GetMilliseconds() > 0;
    window.SetText(ControlPosition, FormatTime(position) + (ends ? " / " + FormatTime(length) : ""));
}

void StatusFields::ShowLevels(const LDBMC& levels) {
    std::vector<int> decibels;
    decibels.reserve(static_cast<std::size_t>(levels.GetChannels()));
    for (int channel = 0; channel < levels.GetChannels(); ++channel)
        decibels.push_back(levels[channel].GetDecibels());
    channels = decibels.size();
    window.SetLevels(ControlLevels, decibels);
}

void StatusFields::ShowStopped() {
    window.SetText(ControlPosition, "");
    window.SetLevels(ControlLevels, std::vector<int>(channels, LDB::Silence));
}

void StatusFields::StoreDevice() {
    Setting::OutDevice.Set(window.GetText(ControlDevice));
}

LDB StatusFields::StoreVolume() {
    const int decibels = window.GetValue(ControlVolume);
    if (!window.IsHeld(ControlVolume)) // a store takes longer than a slider's next step
        Setting::PlayVolume.Set(decibels);
    ShowVolume(decibels);
    return LDB(static_cast<std::int8_t>(decibels));
}

void StatusFields::ShowVolume(int decibels) {
    window.SetToolTip(ControlVolume, "Volume: " + std::to_string(decibels) + " dB");
}
