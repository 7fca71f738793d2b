#include "cli/file_report.h"

#include "cli/high_quality_report.h"
#include "cli/refusal.h"
#include "cli/report_parts.h"
#include "jobs/hires_lists.h"
#include "sound/files/wave_file.h"
#include "sound/level.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_items.h"
#include "tone/tone_level.h"
#include "tone/tone_list_source.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace {

/// With peaks that `raisedDb` brings to where high quality has them.
Json DescribeComponents(const SonvireData& tone, double raisedDb) {
    const bool stereo = tone.HasFlag(ToneFlagStereo), sweep = tone.HasFlag(ToneFlagSweep);
    Json components = Json::array();
    for (std::size_t i = 0; i < tone.GetToneCount() && tone.HasComponents(); ++i) {
        Json component = {{"frequencyHz", tone.startLeftHz[i]}};
        if (sweep)
            component["endFrequencyHz"] = tone.endLeftHz[i];
        if (stereo)
            component["rightFrequencyHz"] = tone.startRightHz[i];
        if (stereo && sweep)
            component["endRightFrequencyHz"] = tone.endRightHz[i];
        component["levelDb"] = GetComponentLevel(tone, i);
        if (const auto peak = GetComponentPeakDbfs(tone, i))
            component["peakDbfs"] = *peak + raisedDb;
        components.push_back(component);
    }
    return components;
}

/// The values as the window shows them, with levels as other programs measure them.
std::vector<FileReport::Row> ListValues(const SonvireData& tone, double raisedDb) {
    std::vector<FileReport::Row> rows;
    for (const unsigned int item : GetShownItems(tone)) {
        FileReport::Row row{tone.GetItemName(item), tone.GetItemValue(item)};
        const auto peak = GetComponentPeakDbfs(tone, item % 256 % MaxTones);
        if (item >= ItemAmplitude && item < ItemDuration && peak)
            row.value += ", a peak of " + FormatDbfs(*peak + raisedDb);
        rows.push_back(row);
    }
    const auto peak = GetComponentPeakDbfs(tone, 0);
    if (!tone.HasFlag(ToneFlagVariableAmplitude) && peak)
        rows.push_back({tone.GetToneCount() > 1 ? "Peak of each" : "Peak", FormatDbfs(*peak + raisedDb)});
    if (tone.IsList())
        rows.push_back({"List", tone.GetListPath()});
    return rows;
}

FileReport ReportToneFile(const std::string& path, const HiresRequest* request) {
    SonvireData tone;
    LFailure failure = tone.ReadFromFile(path.c_str());
    return failure ? RefusedReport(std::move(failure)) : ReportTone(tone, request);
}

/// As it will play; where its frames can't be counted, as its entries say.
std::int64_t CountMilliseconds(const LSoundSource& source, const ToneListReport& list) {
    const std::int64_t sum = list.CountMilliseconds();
    const bool counts = sum < std::int64_t{1000} * std::numeric_limits<int>::max() / source->sampleRate;
    return counts ? source.GetEnd().GetMilliseconds() : sum;
}

/// What there is to tell of a list in one of both qualities.
struct ListFacts {
    ToneListReport found;
    int rate, channels; ///< no channels where it is refused
    std::int64_t ms;
};

ListFacts FindStandardFacts(const std::string& path) {
    ToneListReport found;
    const LSoundSource source = OpenToneList(path, &found);
    const std::int64_t ms = CountMilliseconds(source, found);
    return {std::move(found), source->sampleRate, source->channels, ms};
}

ListFacts FindHighFacts(const std::string& path, const HiresInput& input) {
    ToneListReport found = ExamineHiresList(path);
    const std::int64_t ms = found.CountMilliseconds();
    if (!input.source)
        return {std::move(found), HiresSettings{}.rate, 0, ms};
    return {std::move(found), input.source->rate, input.source->channels, ms};
}

Json ListEntries(const ToneListReport& found, FileReport& report) {
    Json entries = Json::array();
    for (const ToneListEntry& entry : found.entries) {
        const std::string indent(static_cast<std::size_t>(entry.depth) * 2, ' ');
        const std::string name = entry.file.empty() ? "silence" : entry.file;
        report.rows.push_back({indent + name + (entry.problem.empty() ? "" : " (" + entry.problem + ")"),
                               FormatClock(entry.length.GetMilliseconds())});
        entries.push_back(Json{{"file", entry.file},
                               {"depth", entry.depth},
                               {"durationMs", entry.length.GetMilliseconds()},
                               {"problem", entry.problem}});
    }
    return entries;
}

const char* NameChannels(int channels) {
    return channels == 0 ? "" : channels == 1 ? ", mono" : ", stereo";
}

FileReport ReportList(const std::string& path, const HiresRequest* request) {
    std::optional<HighQuality> high;
    if (request)
        high.emplace(OpenHiresInput(path, *request), *request);
    const ListFacts facts = high ? FindHighFacts(path, high->GetInput()) : FindStandardFacts(path);
    FileReport report;
    Json entries = ListEntries(facts.found, report);
    report.title = "Tone list, " + std::to_string(facts.rate) + " Hz" + NameChannels(facts.channels);
    report.rows.push_back({"Total", FormatClock(facts.ms)});
    Json object = DescribeType("list");
    object["rateHz"] = facts.rate;
    object["channels"] = std::max(facts.channels, 1);
    object["durationMs"] = facts.ms;
    object["entries"] = std::move(entries);
    if (high)
        high->AddTo(report, object);
    report.json = WriteJson(object);
    return report;
}

FileReport ReportWave(const std::string& path) {
    const LWaveFile wave = LWaveFile::Open(path.c_str());
    const LSoundSource& source = wave.source;
    if (source->status != SoundUsable)
        return RefusedReport(LWaveFile::ExplainStatus(source->status));
    const bool cutShort = wave.header.IsCutShort();
    const std::int64_t ms = source.GetEnd().GetMilliseconds();
    FileReport report;
    report.title = std::string("WAVE file") + (source->IsStreaming() ? ", still being written" : "") +
                   (cutShort ? ", cut short" : "");
    report.rows = {{"Sample rate", std::to_string(source->sampleRate) + "Hz"},
                   {"Channels", std::to_string(source->channels)},
                   {"Frames", std::to_string(source->GetEndSample())},
                   {"Length", FormatClock(ms)}};
    Json object = DescribeType("wave");
    object["rateHz"] = source->sampleRate;
    object["channels"] = source->channels;
    object["frames"] = source->GetEndSample();
    object["durationMs"] = ms;
    object["streaming"] = source->IsStreaming();
    object["cutShort"] = cutShort;
    report.json = WriteJson(object);
    return report;
}

} // namespace

std::string FileReport::ToText() const {
    std::size_t width = 0;
    for (const Row& row : rows)
        width = std::max(width, row.label.size());
    std::string text = title + "\n";
    for (const Row& row : rows)
        text +=
            Printable(row.label) +
            (row.value.empty() ? "" : std::string(width + 2 - row.label.size(), ' ') + Printable(row.value)) +
            "\n";
    return text;
}

FileReport ReportFile(const std::string& path, const HiresRequest* high) {
    if (LFailure failure = CheckReadable(path))
        return RefusedReport(std::move(failure));
    if (HasExtension(path, ".tdf"))
        return ReportToneFile(path, high);
    if (HasExtension(path, ".tdl"))
        return ReportList(path, high);
    if (high)
        return ReportSoundFile(path);
    if (HasExtension(path, ".wav"))
        return ReportWave(path);
    return RefusedReport("is of an unknown type: .tdf, .tdl and .wav files are supported");
}

FileReport ReportTone(const SonvireData& tone, const HiresRequest* request) {
    const bool stereo = tone.HasFlag(ToneFlagStereo), looped = tone.repeat != 0;
    std::optional<HighQuality> high;
    if (request)
        high.emplace(OpenHiresToneInput(tone, *request), *request);
    const double raisedDb = high ? high->GetRaisedDb() : 0;
    FileReport report;
    report.title =
        std::string(tone.GetModeName()) + (stereo ? ", Stereo" : ", Mono") + (looped ? ", Loop Play" : "");
    report.rows = ListValues(tone, raisedDb);
    Json object = DescribeType("tone");
    object["waveform"] = tone.GetToneName();
    object["mode"] = tone.GetModeName();
    object["channels"] = stereo ? 2 : 1;
    object["loop"] = looped;
    if (tone.HasFlag(ToneFlagDuration))
        object["durationMs"] = tone.durationMs;
    if (tone.IsList())
        object["list"] = tone.GetListPath();
    else
        object["components"] = DescribeComponents(tone, raisedDb);
    if (high)
        high->AddTo(report, object);
    report.json = WriteJson(object);
    return report;
}
