#include "app/window/status_fields.h"

#include "app/desktop/product.h"
#include "app/quality.h"
#include "app/setting_names.h"
#include "app/window/command_ids.h"
#include "app/window/time_text.h"
#include "gui/format_fixed.h"
#include "play/output_names.h"
#include "sound/decibels.h"

#include <algorithm>
#include <limits>

namespace {

constexpr LStatusItem Items[] = {
    {ControlStatusText, LStatusKind::Text, "", ProductAndVersion},
    {ControlFormat, LStatusKind::Remark, "What is played"},
    {ControlPosition, LStatusKind::Text, "Position and length", "00:00.0 / ↻ 00:00.0"},
    {ControlLevels, LStatusKind::Level, "Level"},
    {ControlDevice, LStatusKind::Chooser, "Output device", LSoundPlayDevice::DefaultName},
    {ControlMute, LStatusKind::Toggle, "Mute", "", "speaker"},
    {ControlVolume, LStatusKind::Slider, "Volume"},
    {ControlVolumeText, LStatusKind::Text, "Volume below unity", "-34.2 dB"},
};

/// The volumes that differ: silence, and samples as they are.
constexpr int LeastVolume = -36;
constexpr int MostVolume = 13;

/// What the volume takes off.
std::string DescribeVolume(int decibels) {
    const int level = GetVolumeLevel(LDB(static_cast<std::int8_t>(decibels)));
    return level == 0 ? "muted" : FormatFixed(ToDecibels(level / 256.0), 1) + " dB";
}

} // namespace

std::span<const LStatusItem> StatusFields::GetItems() {
    return Items;
}

void StatusFields::Init() {
    window.SetText(ControlStatusText, ProductAndVersion);
    OfferDevices({}, ""); // it is not known yet what there is
    window.SetRange(ControlVolume, LeastVolume, MostVolume);
    window.SetValue(ControlVolume, ReadPlayVolume().GetDecibels());
    ShowVolume(window.GetValue(ControlVolume));
    ShowStopped();
}

void StatusFields::SetDevices(const std::vector<std::string>& names) {
    OfferDevices(names, " (not there)");
}

void StatusFields::OfferDevices(const std::vector<std::string>& names, const char* missingMark) {
    devices = {LSoundPlayDevice::DefaultName};
    devices.insert(devices.end(), names.begin(), names.end());
    std::vector<std::string> choices = devices;
    const std::string chosen = Setting::OutDevice.Get();
    auto found = std::find_if(devices.begin(), devices.end(),
                              [&chosen](const std::string& name) { return IsSameOutputName(name, chosen); });
    if (found == devices.end() && !chosen.empty()) {
        choices.push_back(chosen + missingMark);
        found = devices.insert(found, chosen);
    }
    window.SetChoices(ControlDevice, choices);
    window.SetValue(ControlDevice, found == devices.end() ? 0 : static_cast<int>(found - devices.begin()));
}

void StatusFields::SetLength(LSoundTime time, bool loops) {
    length = time.GetMilliseconds() > 0 ? (loops ? " / ↻ " : " / ") + FormatTime(time) : " / ∞";
}

void StatusFields::ShowPosition(LSoundTime position) {
    window.SetText(ControlPosition, FormatTime(position) + length);
}

void StatusFields::ShowFormat(const LPlayFormat& format, double loweredDb) {
    window.SetText(ControlFormat,
                   DescribeRate(format.rate) +
                       (format.sample == LPlayFormat::Sample::Float ? ", float" : ", 16 bits") +
                       (loweredDb >= 0.05 ? ", " + FormatFixed(-loweredDb, 1) + " dB" : ""));
}

void StatusFields::ShowLevels(const LMeterLevels& levels) {
    channels = levels.peaks.size();
    window.SetLevels(ControlLevels, levels);
}

void StatusFields::ShowStopped() {
    window.SetText(ControlPosition, FormatTime({}));
    window.SetText(ControlFormat, "");
    ShowLevels({.peaks = std::vector<double>(channels, -std::numeric_limits<double>::infinity())});
}

void StatusFields::StoreDevice() {
    const auto chosen = static_cast<std::size_t>(window.GetValue(ControlDevice));
    if (chosen < devices.size())
        Setting::OutDevice.Set(devices[chosen]);
}

LDB StatusFields::StoreVolume() {
    const int decibels = window.GetValue(ControlVolume);
    if (!window.IsHeld(ControlVolume)) { // a store takes longer than a slider's next step
        const int before = ReadPlayVolume().GetDecibels();
        if (decibels <= LeastVolume && before > LeastVolume)
            Setting::UnmutedVolume.Set(before);
        Setting::PlayVolume.Set(decibels);
    }
    ShowVolume(decibels);
    return LDB(static_cast<std::int8_t>(decibels));
}

LDB StatusFields::ToggleMute() {
    const bool muted = window.GetValue(ControlVolume) <= LeastVolume;
    window.SetValue(ControlVolume, muted ? Setting::UnmutedVolume.Get() : LeastVolume);
    return StoreVolume();
}

void StatusFields::ShowVolume(int decibels) {
    const std::string text = DescribeVolume(decibels);
    window.SetText(ControlVolumeText, text);
    window.SetValueText(ControlVolume, text);
    window.SetValue(ControlMute, decibels <= LeastVolume ? 1 : 0);
}
