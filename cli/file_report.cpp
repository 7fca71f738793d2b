#include "cli/file_report.h"

#include "cli/refusal.h"
#include "jobs/hires_files.h"
#include "jobs/hires_input.h"
#include "sound/files/wave_file.h"
#include "sound/level.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_items.h"
#include "tone/tone_level.h"
#include "tone/tone_list_source.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace {

using Json = nlohmann::ordered_json;

/// File names need not be proper UTF-8; what isn't is replaced.
std::string Write(const Json& object) {
    return object.dump(4, ' ', false, Json::error_handler_t::replace) + "\n";
}

/// mm:ss.mmm
std::string FormatLength(std::int64_t duration) {
    const long long ms = std::max<std::int64_t>(0, duration);
    char text[64];
    std::snprintf(text, sizeof text, "%02lld:%02lld.%03lld", ms / 60000, ms / 1000 % 60, ms % 1000);
    return text;
}

FileReport Refused(LFailure failure) {
    return {.failure = std::move(failure), .title = {}, .rows = {}, .json = {}};
}

/// What every object begins with. The version grows where something is taken out or changes its meaning.
Json Describe(const char* type) {
    return {{"type", type}, {"version", 1}};
}

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

std::string DescribePeak(const HiresInput& input) {
    const std::string peak = std::isfinite(input.peak) ? "peak " + FormatDbfs(input.peak) : "silent";
    char lowered[48] = "";
    if (input.loweredDb > 0)
        std::snprintf(lowered, sizeof lowered, ", lowered by %.2f dB", input.loweredDb);
    return peak + lowered;
}

/// What high quality makes of a tone or list.
struct HighQuality {
    HighQuality(const std::string& path, const HiresRequest& request)
        : input(OpenHiresInput(path, request)),
          level(request.settings.level) {}

    /// Components beside what they are in the standard quality.
    double GetRaisedDb() const { return level - HiresSettings::StandardLevel - input.loweredDb; }
    void AddTo(FileReport& report, Json& object) const;

    HiresInput input;
    double level;
};

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

FileReport ReportTone(const std::string& path, const HiresRequest* request) {
    SonvireData tone;
    if (LFailure failure = tone.ReadFromFile(path.c_str()))
        return Refused(std::move(failure));
    const bool stereo = tone.HasFlag(ToneFlagStereo), looped = tone.repeat != 0;
    std::optional<HighQuality> high;
    if (request)
        high.emplace(path, *request);
    const double raisedDb = high ? high->GetRaisedDb() : 0;
    FileReport report;
    report.title =
        std::string(tone.GetModeName()) + (stereo ? ", Stereo" : ", Mono") + (looped ? ", Loop Play" : "");
    report.rows = ListValues(tone, raisedDb);
    Json object = Describe("tone");
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
    report.json = Write(object);
    return report;
}

/// As it will play; where its frames can't be counted, as its entries say.
std::int64_t CountMilliseconds(const LSoundSource& source, const ToneListReport& list) {
    const std::int64_t sum = list.CountMilliseconds();
    const bool counts = sum < std::int64_t{1000} * std::numeric_limits<int>::max() / source->sampleRate;
    return counts ? source.GetEnd().GetMilliseconds() : sum;
}

FileReport ReportList(const std::string& path, const HiresRequest* request) {
    FileReport report;
    ToneListReport list;
    const LSoundSource source = OpenToneList(path, &list);
    Json entries = Json::array();
    for (const ToneListEntry& entry : list.entries) {
        const std::string indent(static_cast<std::size_t>(entry.depth) * 2, ' ');
        const std::string name = entry.file.empty() ? "silence" : entry.file;
        report.rows.push_back({indent + name + (entry.problem.empty() ? "" : " (" + entry.problem + ")"),
                               FormatLength(entry.length.GetMilliseconds())});
        entries.push_back(Json{{"file", entry.file},
                               {"depth", entry.depth},
                               {"durationMs", entry.length.GetMilliseconds()},
                               {"problem", entry.problem}});
    }
    const std::int64_t total = CountMilliseconds(source, list);
    report.title = "Tone list, " + std::to_string(source->sampleRate) + " Hz, " +
                   (source->channels == 1 ? "mono" : "stereo");
    report.rows.push_back({"Total", FormatLength(total)});
    Json object = Describe("list");
    object["rateHz"] = source->sampleRate;
    object["channels"] = source->channels;
    object["durationMs"] = total;
    object["entries"] = std::move(entries);
    if (request)
        HighQuality(path, *request).AddTo(report, object);
    report.json = Write(object);
    return report;
}

FileReport ReportWave(const std::string& path) {
    const LWaveFile wave = LWaveFile::Open(path.c_str());
    const LSoundSource& source = wave.source;
    if (source->status != SoundUsable)
        return Refused(LWaveFile::ExplainStatus(source->status));
    const bool cutShort = wave.header.IsCutShort();
    const std::int64_t ms = source.GetEnd().GetMilliseconds();
    FileReport report;
    report.title = std::string("WAVE file") + (source->IsStreaming() ? ", still being written" : "") +
                   (cutShort ? ", cut short" : "");
    report.rows = {{"Sample rate", std::to_string(source->sampleRate) + "Hz"},
                   {"Channels", std::to_string(source->channels)},
                   {"Frames", std::to_string(source->GetEndSample())},
                   {"Length", FormatLength(ms)}};
    Json object = Describe("wave");
    object["rateHz"] = source->sampleRate;
    object["channels"] = source->channels;
    object["frames"] = source->GetEndSample();
    object["durationMs"] = ms;
    object["streaming"] = source->IsStreaming();
    object["cutShort"] = cutShort;
    report.json = Write(object);
    return report;
}

FileReport ReportSoundFile(const std::string& path) {
    const HiresFileFacts facts = ReadSoundFileFacts(path);
    if (facts.failure)
        return Refused(facts.failure);
    FileReport report;
    report.title = facts.kind;
    report.rows = {{"Sample rate", std::to_string(facts.rate) + "Hz"},
                   {"Channels", std::to_string(facts.channels)}};
    Json object = Describe("sound");
    object["format"] = facts.kind;
    object["rateHz"] = facts.rate;
    object["channels"] = facts.channels;
    if (facts.frames) {
        const std::int64_t ms = *facts.frames * 1000 / std::max(facts.rate, 1);
        report.rows.push_back({"Frames", std::to_string(*facts.frames)});
        report.rows.push_back({"Length", FormatLength(ms)});
        object["frames"] = *facts.frames;
        object["durationMs"] = ms;
    }
    for (const auto& [label, name, tag] :
         {std::tuple{"Program", "program", facts.program}, std::tuple{"Comment", "comment", facts.comment}}) {
        if (!tag.empty())
            report.rows.push_back({label, tag});
        object[name] = tag;
    }
    report.json = Write(object);
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
        return Refused(std::move(failure));
    if (HasExtension(path, ".tdf"))
        return ReportTone(path, high);
    if (HasExtension(path, ".tdl"))
        return ReportList(path, high);
    if (high)
        return ReportSoundFile(path);
    if (HasExtension(path, ".wav"))
        return ReportWave(path);
    return Refused("is of an unknown type: .tdf, .tdl and .wav files are supported");
}
