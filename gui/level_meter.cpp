#include "gui/level_meter.h"

#include "gui/format_fixed.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr double FallPerMs = 0.04;
constexpr double LeastTold = 0.05; ///< rounds to 0.1 dB

// The upper half of the scale has the room of two thirds of the decibels' number: there it matters.
constexpr double Marks[] = {LLevelMeter::Least, -40, -20, -12, LLevelMeter::Loud, 0};
constexpr double Places[] = {0, 0.2, 0.5, 0.7, 0.85, 1};

std::string NameChannel(std::size_t channel, std::size_t count) {
    if (count == 2)
        return channel == 0 ? "left " : "right ";
    return count == 1 ? "" : "channel " + std::to_string(channel + 1) + " ";
}

} // namespace

LFallingLevel::LFallingLevel(double least, int holdMilliseconds)
    : floor(least),
      level(least),
      shown(least),
      hold(holdMilliseconds) {}

void LFallingLevel::Take(double next) {
    level = std::max(next, floor);
    if (level < shown)
        return;
    shown = level;
    age = 0;
}

void LFallingLevel::Advance(int milliseconds) {
    age += milliseconds;
    shown = std::max(level, shown - FallPerMs * std::clamp(age - hold, 0, milliseconds));
}

void LLevelMeter::Take(const LMeterLevels& levels) {
    last = levels;
    channels.resize(std::max<std::size_t>(1, levels.peaks.size()));
    for (std::size_t i = 0; i < levels.peaks.size(); ++i) {
        channels[i].bar.Take(levels.peaks[i]);
        channels[i].peak.Take(levels.peaks[i]);
    }
    reduction.Take(-levels.limiter);
}

void LLevelMeter::Advance(int milliseconds) {
    for (Channel& channel : channels) {
        channel.bar.Advance(milliseconds);
        channel.peak.Advance(milliseconds);
    }
    reduction.Advance(milliseconds);
}

bool LLevelMeter::IsMoving() const {
    return reduction.IsMoving() || std::any_of(channels.begin(), channels.end(), [](const Channel& each) {
               return each.bar.IsMoving() || each.peak.IsMoving();
           });
}

bool LLevelMeter::IsLimiting() const {
    return reduction.Get() >= LeastTold;
}

std::string LLevelMeter::Describe(int places) const {
    std::string text;
    for (std::size_t i = 0; i < last.peaks.size(); ++i)
        text += (i > 0 ? ", " : "") + NameChannel(i, last.peaks.size()) + FormatFixed(last.peaks[i], places) +
                " dBFS";
    if (IsLimiting())
        text += ", Limiter " + FormatFixed(-reduction.Get(), 1) + " dB";
    return text;
}

std::span<const double> LLevelMeter::GetMarks() {
    return Marks;
}

double LLevelMeter::GetPlace(double decibels) {
    if (decibels <= Least)
        return 0;
    const auto* above = std::upper_bound(std::begin(Marks), std::end(Marks), decibels);
    if (above == std::end(Marks))
        return 1;
    const auto i = static_cast<std::size_t>(above - std::begin(Marks));
    const double part = (decibels - Marks[i - 1]) / (Marks[i] - Marks[i - 1]);
    return std::lerp(Places[i - 1], Places[i], part);
}

bool LLevelMeter::IsFull(double decibels) {
    return decibels > -LeastTold;
}
