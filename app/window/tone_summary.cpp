#include "app/window/tone_summary.h"

#include "app/list_report.h"
#include "app/window/time_text.h"
#include "tone/note_name.h"
#include "tone/tone_level.h"
#include "tone/tone_list_file.h"

#include <algorithm>
#include <cstdio>
#include <limits>

namespace {

/// With as many digits as it needs, seven at most.
std::string FormatNumber(double value, const char* unit) {
    char text[64];
    std::snprintf(text, sizeof text, "%.7g %s", value, unit);
    return text;
}

std::string FormatHz(double hz) {
    return hz < 10'000 ? FormatNumber(hz, "Hz") : FormatNumber(hz / 1000, "kHz");
}

std::string FormatRange(double from, double to) {
    return FormatHz(from) + (from == to ? "" : " to " + FormatHz(to));
}

const char* DescribeLoop(const SonvireData& tone) {
    return tone.repeat != 0 ? ", looped" : "";
}

/// A sweep needs its duration.
bool Sweeps(const SonvireData& tone) {
    return tone.HasFlag(ToneFlagDuration) && tone.HasFlag(ToneFlagSweep);
}

std::string DescribeOneComponent(const SonvireData& tone) {
    const bool sweep = Sweeps(tone);
    const auto describe = [sweep](double start, double end) {
        return FormatRange(start, sweep ? end : start);
    };
    const std::string left = describe(tone.startLeftHz[0], tone.endLeftHz[0]);
    const std::string right = describe(tone.startRightHz[0], tone.endRightHz[0]);
    if (tone.HasFlag(ToneFlagStereo) && left != right)
        return "L " + left + " · R " + right;
    const std::string note = sweep ? "" : DescribeNote(tone.startLeftHz[0]);
    return left + (note.empty() ? "" : " · " + note);
}

/// How many they are, and all that they sound at.
std::string DescribeComponents(const SonvireData& tone) {
    const bool sweep = Sweeps(tone), stereo = tone.HasFlag(ToneFlagStereo);
    double least = std::numeric_limits<double>::infinity(), most = -least;
    const auto take = [&least, &most](double hz) {
        least = std::min(least, hz);
        most = std::max(most, hz);
    };
    for (unsigned int i = 0; i < tone.GetToneCount(); ++i) {
        take(tone.startLeftHz[i]);
        take(sweep ? tone.endLeftHz[i] : tone.startLeftHz[i]);
        take(stereo ? tone.startRightHz[i] : tone.startLeftHz[i]);
        take(stereo && sweep ? tone.endRightHz[i] : tone.startLeftHz[i]);
    }
    return std::to_string(tone.GetToneCount()) + (sweep ? " sweeps, " : " tones, ") +
           FormatRange(least, most);
}

std::string GetWaveformName(const SonvireData& tone) {
    const std::string name = tone.GetToneName();
    return name.empty() ? "Unknown waveform" : name;
}

std::string DescribeLevel(const SonvireData& tone, const Quality& quality) {
    const std::optional<double> peak = GetHighestPeakDbfs(tone);
    if (!peak)
        return "Silent";
    return (tone.GetToneCount() > 1 ? "Peak up to " : "Peak ") + FormatDbfs(*peak) +
           (*peak <= 0         ? ""
            : quality.IsHigh() ? ", lowered to 0 dBFS"
                               : ", limited to 0 dBFS");
}

ToneSummary SummarizeComponents(const SonvireData& tone, const Quality& quality) {
    const char* log = tone.HasFlag(ToneFlagLogSweep) ? ", logarithmic sweep" : ", linear sweep";
    return {.headline = tone.GetToneCount() == 1 ? DescribeOneComponent(tone) : DescribeComponents(tone),
            .kind = GetWaveformName(tone) + (Sweeps(tone) ? log : "") +
                    (tone.HasFlag(ToneFlagStereo) ? ", stereo, " : ", mono, ") + DescribeLength(tone),
            .level = DescribeLevel(tone, quality),
            .keys = "Space plays, Escape stops · + and - step · Return types a value"};
}

ToneSummary SummarizeList(const SonvireData& tone, const Quality& quality) {
    const std::string list = tone.GetListPath();
    std::vector<std::string> lines;
    std::string kind = "can't be read";
    if (!ReadToneListLines(lines, list.c_str()))
        kind = std::to_string(lines.size()) + (lines.size() == 1 ? " entry, " : " entries, ") +
               FormatLength(ExamineList(list, quality).Measure()) + DescribeLoop(tone);
    return {.headline = "Tone list",
            .kind = kind,
            .level = "",
            .keys = "Space plays, Escape stops · Return edits the list"};
}

} // namespace

std::string DescribeLength(const SonvireData& tone) {
    return tone.HasFlag(ToneFlagDuration) ? FormatLength(tone.durationMs) + DescribeLoop(tone) : "endless";
}

ToneSummary SummarizeTone(const SonvireData& tone, const Quality& quality) {
    if (tone.HasComponents())
        return SummarizeComponents(tone, quality);
    if (tone.IsList())
        return SummarizeList(tone, quality);
    return {.headline = tone.GetToneName(),
            .kind = "Mono, " + DescribeLength(tone),
            .level = "",
            .keys = "Space plays, Escape stops"};
}
