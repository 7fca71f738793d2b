#include "cli/high_quality_report.h"

#include "jobs/hires_files.h"
#include "tone/tone_level.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <tuple>

namespace {

/// Sound files in a list keep their levels, which nobody knows before they are read.
std::string DescribePeak(const HiresInput& input) {
    if (!std::isfinite(input.peak))
        return input.isList ? "no tone that sounds" : "silent";
    char lowered[48] = "";
    if (input.loweredDb > 0)
        std::snprintf(lowered, sizeof lowered, ", lowered by %.2f dB", input.loweredDb);
    return (input.isList ? "peak of its tones up to " : "peak up to ") + FormatDbfs(input.peak) + lowered;
}

} // namespace

void HighQuality::AddTo(FileReport& report, Json& object) const {
    const bool fits = !input.failure;
    report.rows.push_back({"High quality", fits ? DescribePeak(input) : input.failure.GetReason()});
    Json high = {{"levelDbfs", level}, {"problem", input.failure.GetReason()}};
    if (fits) {
        high["peakDbfs"] = input.peak; // null for silence
        high["loweredDb"] = input.loweredDb;
        high["rateHz"] = input.source->rate;
        high["channels"] = input.source->channels;
    }
    if (fits && input.source->GetLength() != HiresSource::Endless)
        high["frames"] = input.source->GetLength();
    object["high"] = std::move(high);
}

FileReport ReportSoundFile(const std::string& path) {
    const HiresFileFacts facts = ReadSoundFileFacts(path);
    if (facts.failure)
        return RefusedReport(facts.failure);
    FileReport report;
    report.title = facts.kind + (facts.isCutShort ? ", cut short" : "");
    report.rows = {{"Sample rate", std::to_string(facts.rate) + "Hz"},
                   {"Channels", std::to_string(facts.channels)}};
    Json object = DescribeType("sound");
    object["format"] = facts.kind;
    object["cutShort"] = facts.isCutShort;
    object["rateHz"] = facts.rate;
    object["channels"] = facts.channels;
    if (facts.frames) {
        const std::int64_t ms = *facts.frames * 1000 / std::max(facts.rate, 1);
        report.rows.push_back({"Frames", std::to_string(*facts.frames)});
        report.rows.push_back({"Length", FormatClock(ms)});
        object["frames"] = *facts.frames;
        object["durationMs"] = ms;
    }
    for (const auto& [label, name, tag] :
         {std::tuple{"Program", "program", facts.program}, std::tuple{"Comment", "comment", facts.comment}}) {
        if (!tag.empty())
            report.rows.push_back({label, tag});
        object[name] = tag;
    }
    report.json = WriteJson(object);
    return report;
}
