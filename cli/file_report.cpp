#include "cli/file_report.h"

#include "sound/files/wave_file.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_items.h"
#include "tone/tone_list_source.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>

namespace {

using Json = nlohmann::ordered_json;

/// File names need not be proper UTF-8; what isn't is replaced.
std::string Write(const Json& object) {
    return object.dump(4, ' ', false, Json::error_handler_t::replace) + "\n";
}

/// mm:ss.mmm
std::string FormatLength(LSoundTime time) {
    const int ms = std::max(0, time.GetMilliseconds());
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d.%03d", ms / 60000, ms / 1000 % 60, ms % 1000);
    return text;
}

FileReport Refused(LFailure failure) {
    return {.failure = std::move(failure), .title = {}, .rows = {}, .json = {}};
}

FileReport ReportTone(const std::string& path) {
    SonvireData tone;
    if (LFailure failure = tone.ReadFromFile(path.c_str()))
        return Refused(std::move(failure));
    const bool stereo = tone.HasFlag(ToneFlagStereo), looped = tone.repeat != 0;
    FileReport report;
    report.title =
        std::string(tone.GetModeName()) + (stereo ? ", Stereo" : ", Mono") + (looped ? ", Loop Play" : "");
    Json items = Json::array();
    for (const unsigned int item : GetShownItems(tone)) {
        const FileReport::Row row{tone.GetItemName(item), tone.GetItemValue(item)};
        report.rows.push_back(row);
        items.push_back(Json{{"item", static_cast<int>(item)}, {"label", row.label}, {"value", row.value}});
    }
    Json object = {{"type", "tone"},
                   {"waveform", tone.GetToneName()},
                   {"mode", tone.GetModeName()},
                   {"stereo", stereo},
                   {"loop", looped},
                   {"items", items}};
    if (tone.IsList()) {
        report.rows.push_back({"List", tone.GetListPath()});
        object["list"] = tone.GetListPath();
    }
    report.json = Write(object);
    return report;
}

FileReport ReportList(const std::string& path) {
    FileReport report;
    ToneListReport list;
    const LSoundSource source = OpenToneList(path, &list);
    Json entries = Json::array();
    for (const ToneListEntry& entry : list.entries) {
        const std::string indent(static_cast<std::size_t>(entry.depth) * 2, ' ');
        const std::string name = entry.file.empty() ? "silence" : entry.file;
        report.rows.push_back({indent + name + (entry.problem.empty() ? "" : " (" + entry.problem + ")"),
                               FormatLength(entry.length)});
        entries.push_back(Json{{"file", entry.file},
                               {"depth", entry.depth},
                               {"milliseconds", entry.length.GetMilliseconds()},
                               {"problem", entry.problem}});
    }
    const LSoundTime total = source.GetEnd();
    report.title = "Tone list, " + std::to_string(source->sampleRate) + " Hz, " +
                   (source->channels == 1 ? "mono" : "stereo");
    report.rows.push_back({"Total", FormatLength(total)});
    report.json = Write({{"type", "list"},
                         {"rate", source->sampleRate},
                         {"channels", source->channels},
                         {"milliseconds", total.GetMilliseconds()},
                         {"entries", entries}});
    return report;
}

FileReport ReportWave(const std::string& path) {
    const LWaveFile wave = LWaveFile::Open(path.c_str());
    const LSoundSource& source = wave.source;
    if (source->status != SoundUsable)
        return Refused(LWaveFile::ExplainStatus(source->status));
    const bool cutShort = wave.header.IsCutShort();
    FileReport report;
    report.title = std::string("WAVE file") + (source->IsStreaming() ? ", still being written" : "") +
                   (cutShort ? ", cut short" : "");
    report.rows = {{"Sample rate", std::to_string(source->sampleRate) + "Hz"},
                   {"Channels", std::to_string(source->channels)},
                   {"Frames", std::to_string(source->GetEndSample())},
                   {"Length", FormatLength(source.GetEnd())}};
    report.json = Write({{"type", "wave"},
                         {"rate", source->sampleRate},
                         {"channels", source->channels},
                         {"frames", source->GetEndSample()},
                         {"milliseconds", source.GetEnd().GetMilliseconds()},
                         {"streaming", source->IsStreaming()},
                         {"cutShort", cutShort}});
    return report;
}

} // namespace

std::string FileReport::ToText() const {
    std::size_t width = 0;
    for (const Row& row : rows)
        width = std::max(width, row.label.size());
    std::string text = title + "\n";
    for (const Row& row : rows)
        text += row.label +
                (row.value.empty() ? "" : std::string(width + 2 - row.label.size(), ' ') + row.value) + "\n";
    return text;
}

FileReport ReportFile(const std::string& path) {
    if (LFailure failure = CheckReadable(path))
        return Refused(std::move(failure));
    if (HasExtension(path, ".tdf"))
        return ReportTone(path);
    if (HasExtension(path, ".tdl"))
        return ReportList(path);
    if (HasExtension(path, ".wav"))
        return ReportWave(path);
    return Refused("is of an unknown type: .tdf, .tdl and .wav files are supported");
}
