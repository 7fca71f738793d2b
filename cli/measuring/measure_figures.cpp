#include "cli/measuring/measure_figures.h"
#include "sound/decibels.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>

namespace {

using Channel = SoundFigures::Channel;
using Group = MeasuredFigure::Group;
using Value = MeasuredFigure::Value;

constexpr double MicrosecondsPerSecond = 1e6;

Value ToDb(Value ratio) {
    return ratio ? Value(ToDecibels(std::abs(*ratio))) : Value();
}

Value Times(double factor, Value value) {
    return value ? Value(*value * factor) : Value();
}

/// Of a channel that has samples.
Value Of(const Channel& c, double value) {
    return c.level.samples > 0 ? Value(value) : Value();
}

Value Count(const Channel& c, std::int64_t count) {
    return Of(c, static_cast<double>(count));
}

/// None of what is at rest all the time.
std::int64_t CountAtPeaks(const Level& level) {
    return level.lowest < level.highest ? level.atLowest + level.atHighest : 0;
}

/// More about what was found so many times.
Value Detail(std::int64_t found, std::int64_t value) {
    return found > 0 ? Value(static_cast<double>(value)) : Value();
}

/// None where no tone lies between 20 Hz and 20 kHz: then all ratios are 0.
Value Ratio(const Channel& c, double ToneFigures::*ratio) {
    return c.tones.thdPlusNoise > 0 ? Value(c.tones.*ratio) : Value();
}

/// How far tones stand above something, of which there may be none.
Value Above(const Channel& c, double ToneFigures::*ratio) {
    const Value times = Ratio(c, ratio);
    return times == 0 ? std::numeric_limits<double>::infinity() : ToDb(times);
}

Value OfMainTone(const Channel& c, double ToneLine::*value) {
    const ToneLine* main = GetMainTone(c.tones);
    return main ? Value((*main).*value) : Value();
}

Value OfStereo(const MeasuredSound& sound, Value SoundFigures::Stereo::*value) {
    return sound.figures.stereo ? (*sound.figures.stereo).*value : Value();
}

constexpr MeasuredFigure Figures[] = {
    {Group::Losses, 2, "limiter", "Taken off by limiter", "dB", "limiterDb", nullptr,
     [](const MeasuredSound& s) { return s.limiterDb; }},
    {Group::Losses, 0, "unusable", "Unusable samples", "", "unusableSamples", nullptr,
     [](const MeasuredSound& s) { return Value(static_cast<double>(s.figures.unusable)); }},

    {Group::Levels, 2, "peak", "Peak", "dBFS", "peakDbfs",
     [](const Channel& c) { return ToDb(Of(c, c.level.GetPeak())); }},
    {Group::Levels, 0, "flat", "Samples at the peaks", "", "peakSamples",
     [](const Channel& c) { return Count(c, CountAtPeaks(c.level)); }},
    {Group::Levels, 2, "truepeak", "True peak", "dBTP", "truePeakDbtp",
     [](const Channel& c) { return ToDb(Of(c, c.truePeak)); }},
    {Group::Levels, 2, "rms", "RMS", "dBFS", "rmsDbfs",
     [](const Channel& c) { return ToDb(Of(c, c.level.GetRms())); }},
    {Group::Levels, 2, "rmsaes17", "RMS as in AES17", "dBFS", "rmsAes17Dbfs",
     [](const Channel& c) { return ToDb(Of(c, c.level.GetRms() * std::numbers::sqrt2)); }},
    {Group::Levels, 2, "crest", "Crest factor", "dB", "crestDb",
     [](const Channel& c) { return c.level.GetCrest() > 0 ? ToDb(c.level.GetCrest()) : Value(); }},
    {.group = Group::Levels,
     .decimals = 6,
     .name = "dc",
     .label = "DC",
     .unit = "%",
     .field = "dcPercent",
     .ofChannel = [](const Channel& c) { return Times(100, Of(c, c.level.GetDc())); },
     .limitsMagnitude = true},
    {Group::Levels, 2, "dc", "DC", "dBFS", "dcDbfs",
     [](const Channel& c) { return ToDb(Of(c, c.level.GetDc())); }},

    {Group::Faults, 0, "clipped", "Clipped samples", "", "clippedSamples",
     [](const Channel& c) { return Count(c, c.level.clipped); }},
    {Group::Faults, 0, "clippedruns", "  in runs of 2 or more", "", "clippedRuns",
     [](const Channel& c) { return Detail(c.level.clipped, c.level.clippedRuns); }},
    {Group::Faults, 0, "longestclip", "  longest run", "", "longestClip",
     [](const Channel& c) { return Detail(c.level.clipped, c.level.longestClip); }},
    {Group::Faults, 0, "firstclip", "  first", "frame", "firstClipFrame",
     [](const Channel& c) { return Detail(c.level.clipped, c.level.firstClip); }},
    {Group::Faults, 0, "wrapped", "Wrapped samples", "", "wrappedSamples",
     [](const Channel& c) { return c.areWrapsKnown ? Count(c, c.level.wrapped) : Value(); }},
    {Group::Faults, 0, "firstwrap", "  first", "frame", "firstWrapFrame",
     [](const Channel& c) { return Detail(c.level.wrapped, c.level.firstWrap); }},
    {Group::Faults, 0, "jumps", "Jumps of a tone", "", "jumps",
     [](const Channel& c) { return c.jumps.hasLooked ? Count(c, c.jumps.count) : Value(); }},
    {Group::Faults, 0, "firstjump", "  first", "frame", "firstJumpFrame",
     [](const Channel& c) { return Detail(c.jumps.count, c.jumps.first); }},

    {Group::Tones, 0, "tones", "Number of tones", "", "toneCount",
     [](const Channel& c) {
         return c.tones.isSteady && c.tones.isWithinReach ? Count(c, std::ssize(c.tones.tones)) : Value();
     }},
    {Group::Tones, 1, "variation", "Variation", "%", "variationPercent",
     [](const Channel& c) {
         return c.tones.isSteady && c.tones.tones.empty() ? Value() : Value(100 * c.tones.variation);
     }},
    {Group::Tone, 4, "frequency", "Frequency", "Hz", "frequencyHz",
     [](const Channel& c) { return OfMainTone(c, &ToneLine::hz); }},
    {Group::Tone, 2, "level", "Level", "dBFS", "levelDbfs",
     [](const Channel& c) { return ToDb(OfMainTone(c, &ToneLine::amplitude)); }},

    {Group::Distortion, 2, "thd", "THD", "dB", "thdDb",
     [](const Channel& c) { return ToDb(Ratio(c, &ToneFigures::thd)); }},
    {Group::Distortion, 6, "thd", "THD", "%", "thdPercent",
     [](const Channel& c) { return Times(100, Ratio(c, &ToneFigures::thd)); }},
    {Group::Distortion, 2, "thdn", "THD+N", "dB", "thdPlusNoiseDb",
     [](const Channel& c) { return ToDb(Ratio(c, &ToneFigures::thdPlusNoise)); }},
    {Group::Distortion, 6, "thdn", "THD+N", "%", "thdPlusNoisePercent",
     [](const Channel& c) { return Times(100, Ratio(c, &ToneFigures::thdPlusNoise)); }},
    {Group::Distortion, 2, "snr", "Signal to noise", "dB", "signalToNoiseDb",
     [](const Channel& c) { return Above(c, &ToneFigures::signalToNoise); }},
    {Group::Distortion, 2, "sfdr", "Spur-free range", "dB", "spurFreeRangeDb",
     [](const Channel& c) { return Above(c, &ToneFigures::spurFreeRange); }},

    {Group::Residual, 2, "residual", "All but the tones", "dB", "residualDb",
     [](const Channel& c) { return ToDb(Ratio(c, &ToneFigures::residual)); }},
    {Group::Residual, 6, "residual", "All but the tones", "%", "residualPercent",
     [](const Channel& c) { return Times(100, Ratio(c, &ToneFigures::residual)); }},

    {Group::Stereo, 2, "balance", "Level, right to left", "dB", "levelDifferenceDb", nullptr,
     [](const MeasuredSound& s) { return ToDb(OfStereo(s, &SoundFigures::Stereo::levelRatio)); }},
    {Group::Stereo, 4, "correlation", "Correlation", "", "correlation", nullptr,
     [](const MeasuredSound& s) { return OfStereo(s, &SoundFigures::Stereo::correlation); }},
    {Group::Stereo, 3, "delay", "Delay of right", "frames", "delayFrames", nullptr,
     [](const MeasuredSound& s) { return OfStereo(s, &SoundFigures::Stereo::delayFrames); }},
    {Group::Stereo, 2, "delay", "Delay of right", "µs", "delayMicroseconds", nullptr,
     [](const MeasuredSound& s) {
         return Times(MicrosecondsPerSecond / s.rate, OfStereo(s, &SoundFigures::Stereo::delayFrames));
     }},
};

} // namespace

std::int64_t MeasuredSound::GetFrames() const {
    return figures.whole.samples / std::max<std::int64_t>(std::ssize(figures.channels), 1);
}

std::size_t MeasuredSound::CountTones() const {
    std::size_t most = 0;
    for (const Channel& each : figures.channels)
        most = std::max(most, each.tones.tones.size());
    return most;
}

std::int64_t MeasuredSound::GetMilliseconds(std::int64_t frames) const {
    return frames * 1000 / std::max(rate, 1);
}

std::vector<MeasuredColumn> ListChannels(const MeasuredSound& sound) {
    std::vector<MeasuredColumn> columns;
    const std::size_t count = sound.figures.channels.size();
    for (const Channel& each : sound.figures.channels) {
        const std::string number = std::to_string(columns.size() + 1);
        MeasuredColumn column = count > 2         ? MeasuredColumn{"ch" + number, "Ch " + number, {}}
                                : count == 1      ? MeasuredColumn{"mono", "Mono", {}}
                                : columns.empty() ? MeasuredColumn{"left", "Left", {}}
                                                  : MeasuredColumn{"right", "Right", {}};
        if (sound.HasUsable())
            column.figures = each;
        columns.push_back(std::move(column));
    }
    return columns;
}

MeasuredColumn MakeWhole(const MeasuredSound& sound) {
    MeasuredColumn whole{"all", "All", {}, true};
    if (!sound.HasUsable())
        return whole;
    whole.figures.level = sound.figures.whole;
    whole.figures.truePeak = sound.figures.truePeak;
    whole.figures.areWrapsKnown = true;
    Jumps& jumps = whole.figures.jumps;
    for (const Channel& each : sound.figures.channels) {
        whole.figures.areWrapsKnown &= each.areWrapsKnown;
        jumps.hasLooked |= each.jumps.hasLooked;
        jumps.count += each.jumps.count;
        if (each.jumps.count > 0)
            jumps.first = jumps.first < 0 ? each.jumps.first : std::min(jumps.first, each.jumps.first);
    }
    return whole;
}

std::string MeasuredFigure::Format(Value value) const {
    if (!value)
        return "-";
    const bool isCount = decimals == 0 && *unit == '\0';
    const bool isNone =
        isCount ? *value == 0 : group == Group::Distortion && (*value == 0 || std::isinf(*value));
    return isNone ? "none" : FormatNumber(*value, decimals);
}

const ToneLine* GetMainTone(const ToneFigures& figures) {
    return figures.tones.empty() ? nullptr : &figures.tones[figures.main];
}

const char* ExplainNoTones(const ToneFigures& figures) {
    return !figures.isWithinReach  ? "a tone too low for so short a sound, or too close to half the rate"
           : !figures.isSteady     ? "tones that come and go, sweep or beat"
           : figures.tones.empty() ? "noise, a sweep, clicks or silence"
                                   : nullptr;
}

std::span<const MeasuredFigure> GetMeasuredFigures() {
    return Figures;
}

std::string FormatNumber(double value, int decimals) {
    char text[64];
    const double unit = std::pow(10, decimals);
    const double rounded = std::isfinite(value) ? std::round(value * unit) / unit + 0.0 : value;
    std::snprintf(text, sizeof text, "%.*f", decimals, rounded);
    return text;
}
