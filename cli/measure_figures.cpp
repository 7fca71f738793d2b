#include "cli/measure_figures.h"

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

Value OfStrongestTone(const Channel& c, double ToneLine::*value) {
    const auto& tones = c.tones.tones;
    const auto strongest =
        std::max_element(tones.begin(), tones.end(),
                         [](const ToneLine& a, const ToneLine& b) { return a.amplitude < b.amplitude; });
    return strongest == tones.end() ? Value() : Value((*strongest).*value);
}

Value OfStereo(const MeasuredSound& sound, Value SoundFigures::Stereo::*value) {
    return sound.figures.stereo ? (*sound.figures.stereo).*value : Value();
}

constexpr MeasuredFigure Figures[] = {
    {Group::Levels, "peak", "Peak", "dBFS", "peakDbfs", 2,
     [](const Channel& c) { return ToDb(Of(c, c.level.GetPeak())); }},
    {Group::Levels, "truepeak", "True peak", "dBTP", "truePeakDbtp", 2,
     [](const Channel& c) { return ToDb(Of(c, c.truePeak)); }},
    {Group::Levels, "rms", "RMS", "dBFS", "rmsDbfs", 2,
     [](const Channel& c) { return ToDb(Of(c, c.level.GetRms())); }},
    {Group::Levels, "rmsaes17", "RMS as in AES17", "dBFS", "rmsAes17Dbfs", 2,
     [](const Channel& c) { return ToDb(Of(c, c.level.GetRms() * std::numbers::sqrt2)); }},
    {Group::Levels, "crest", "Crest factor", "dB", "crestDb", 2,
     [](const Channel& c) { return c.level.GetCrest() > 0 ? ToDb(c.level.GetCrest()) : Value(); }},
    {.group = Group::Levels,
     .name = "dc",
     .label = "DC",
     .unit = "%",
     .field = "dcPercent",
     .decimals = 6,
     .ofChannel = [](const Channel& c) { return Times(100, Of(c, c.level.GetDc())); },
     .limitsMagnitude = true},
    {Group::Levels, "dc", "DC", "dBFS", "dcDbfs", 2,
     [](const Channel& c) { return ToDb(Of(c, c.level.GetDc())); }},

    {Group::Faults, "clipped", "Clipped samples", "", "clippedSamples", 0,
     [](const Channel& c) { return Count(c, c.level.clipped); }},
    {Group::Faults, "clippedruns", "  in runs of 2 or more", "", "clippedRuns", 0,
     [](const Channel& c) { return Detail(c.level.clipped, c.level.clippedRuns); }},
    {Group::Faults, "longestclip", "  longest run", "", "longestClip", 0,
     [](const Channel& c) { return Detail(c.level.clipped, c.level.longestClip); }},
    {Group::Faults, "firstclip", "  first", "frame", "firstClipFrame", 0,
     [](const Channel& c) { return Detail(c.level.clipped, c.level.firstClip); }},
    {Group::Faults, "wrapped", "Wrapped samples", "", "wrappedSamples", 0,
     [](const Channel& c) { return Count(c, c.level.wrapped); }},
    {Group::Faults, "firstwrap", "  first", "frame", "firstWrapFrame", 0,
     [](const Channel& c) { return Detail(c.level.wrapped, c.level.firstWrap); }},
    {Group::Faults, "jumps", "Jumps of a tone", "", "jumps", 0,
     [](const Channel& c) { return c.jumps.hasLooked ? Count(c, c.jumps.count) : Value(); }},
    {Group::Faults, "firstjump", "  first", "frame", "firstJumpFrame", 0,
     [](const Channel& c) { return Detail(c.jumps.count, c.jumps.first); }},

    {Group::Tones, "tones", "Tones", "", "toneCount", 0,
     [](const Channel& c) { return Count(c, std::ssize(c.tones.tones)); }},
    {Group::Tones, "frequency", "Frequency", "Hz", "frequencyHz", 4,
     [](const Channel& c) { return OfStrongestTone(c, &ToneLine::hz); }},
    {Group::Tones, "level", "Level", "dBFS", "levelDbfs", 2,
     [](const Channel& c) { return ToDb(OfStrongestTone(c, &ToneLine::amplitude)); }},

    {Group::Distortion, "thd", "THD", "dB", "thdDb", 2,
     [](const Channel& c) { return ToDb(Ratio(c, &ToneFigures::thd)); }},
    {Group::Distortion, "thd", "THD", "%", "thdPercent", 6,
     [](const Channel& c) { return Times(100, Ratio(c, &ToneFigures::thd)); }},
    {Group::Distortion, "thdn", "THD+N", "dB", "thdPlusNoiseDb", 2,
     [](const Channel& c) { return ToDb(Ratio(c, &ToneFigures::thdPlusNoise)); }},
    {Group::Distortion, "thdn", "THD+N", "%", "thdPlusNoisePercent", 6,
     [](const Channel& c) { return Times(100, Ratio(c, &ToneFigures::thdPlusNoise)); }},
    {Group::Distortion, "snr", "Signal to noise", "dB", "signalToNoiseDb", 2,
     [](const Channel& c) { return Above(c, &ToneFigures::signalToNoise); }},
    {Group::Distortion, "sfdr", "Spur-free range", "dB", "spurFreeRangeDb", 2,
     [](const Channel& c) { return Above(c, &ToneFigures::spurFreeRange); }},

    {Group::Sound, "balance", "Level, right to left", "dB", "levelDifferenceDb", 2, nullptr,
     [](const MeasuredSound& s) { return ToDb(OfStereo(s, &SoundFigures::Stereo::levelRatio)); }},
    {Group::Sound, "correlation", "Correlation", "", "correlation", 4, nullptr,
     [](const MeasuredSound& s) { return OfStereo(s, &SoundFigures::Stereo::correlation); }},
    {Group::Sound, "delay", "Delay of right", "frames", "delayFrames", 3, nullptr,
     [](const MeasuredSound& s) { return OfStereo(s, &SoundFigures::Stereo::delayFrames); }},
    {Group::Sound, "delay", "Delay of right", "µs", "delayMicroseconds", 2, nullptr,
     [](const MeasuredSound& s) {
         return Times(MicrosecondsPerSecond / s.rate, OfStereo(s, &SoundFigures::Stereo::delayFrames));
     }},
    {Group::Sound, "limiter", "Taken off by limiter", "dB", "limiterDb", 2, nullptr,
     [](const MeasuredSound& s) { return Value(s.limiterDb); }},
    {Group::Sound, "unusable", "Samples not a number", "", "unusableSamples", 0, nullptr,
     [](const MeasuredSound& s) { return Value(static_cast<double>(s.figures.unusable)); }},
};

} // namespace

std::int64_t MeasuredSound::GetFrames() const {
    return figures.whole.samples / std::max<std::int64_t>(std::ssize(figures.channels), 1);
}

std::int64_t MeasuredSound::GetMilliseconds(std::int64_t frames) const {
    return frames * 1000 / std::max(rate, 1);
}

std::vector<MeasuredColumn> ListChannels(const MeasuredSound& sound) {
    std::vector<MeasuredColumn> columns;
    const auto& channels = sound.figures.channels;
    for (const Channel& each : channels) {
        const std::string number = std::to_string(columns.size() + 1);
        const bool isFirst = columns.empty();
        columns.push_back(channels.size() == 1 ? MeasuredColumn{"mono", "Mono", each}
                          : channels.size() == 2
                              ? MeasuredColumn{isFirst ? "left" : "right", isFirst ? "Left" : "Right", each}
                              : MeasuredColumn{"ch" + number, "Ch " + number, each});
    }
    return columns;
}

MeasuredColumn MakeWhole(const MeasuredSound& sound) {
    MeasuredColumn whole{"all", "All", {}, true};
    whole.figures.level = sound.figures.whole;
    whole.figures.truePeak = sound.figures.truePeak;
    Jumps& jumps = whole.figures.jumps;
    for (const Channel& each : sound.figures.channels) {
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
    return isCount && *value == 0 ? "none" : FormatNumber(*value, decimals);
}

std::span<const MeasuredFigure> GetMeasuredFigures() {
    return Figures;
}

double ToDecibels(double ratio) {
    return 20 * std::log10(ratio);
}

std::string FormatNumber(double value, int decimals) {
    char text[64];
    const double unit = std::pow(10, decimals);
    const double rounded = std::isfinite(value) ? std::round(value * unit) / unit + 0.0 : value;
    std::snprintf(text, sizeof text, "%.*f", decimals, rounded);
    return text;
}
