#include "tone/tone_list_report.h"

#include "sound/wave_file.h"
#include "sys/file.h"
#include "tone/tone_engine.h"
#include "tone/tone_list_source.h"

namespace {

constexpr const char* EndlessProblem = "is endless; nothing behind it plays";

class Examination {
public:
    void AddList(const std::string& path, int depth) {
        report.files.push_back(path);
        LList<ToneItem> list;
        GetToneListFromFile(list, path.c_str());
        const std::string folder = GetFolder(path);
        for (const ToneItem& item : list) {
            if (entries.size() >= MaxEntriesInAll)
                return;
            AddItem(item, folder, depth);
        }
    }

    void AddItem(const ToneItem& item, const std::string& folder, int depth) {
        if (item.IsSilence())
            entries.push_back({.file = {}, .depth = depth, .length = item.GetLength(), .problem = {}});
        else
            AddFile(FindListEntry(item.GetPath(), folder), depth);
    }

    ToneListReport report;

private:
    std::vector<ToneListEntry>& entries = report.entries;

    void AddFile(const std::string& path, int depth) {
        const std::string extension = GetPathExtension(path);
        const std::string unreadable = WhyUnreadable(path.c_str());
        report.files.push_back(path);
        entries.push_back({.file = path, .depth = depth, .length = {}, .problem = unreadable});
        if (extension == ".tdf")
            AddTone(path, depth);
        else if (extension == ".wav")
            AddWave(path);
        else if (extension == ".tdl")
            AddNested(path, depth);
        else
            entries.back().problem = "is of an unknown type and left out";
    }

    void AddTone(const std::string& path, int depth) {
        ToneListEntry& entry = entries.back();
        SonvireData tone;
        const bool whole = tone.ReadFromFile(path.c_str());
        if (whole && tone.waveform == ToneFromList) {
            AddListTone(tone, depth);
            return;
        }
        entry.length = OpenToneEngine(tone).GetEnd();
        if (!whole)
            entry.problem = (entry.problem.empty() ? "is not a whole tone" : entry.problem) +
                            "; an endless sine plays, and nothing behind it";
        else if (!tone.IsFinite())
            entry.problem = EndlessProblem;
    }

    void AddListTone(const SonvireData& tone, int depth) {
        const std::size_t at = entries.size() - 1;
        const std::string unreadable = WhyUnreadable(tone.GetListPath().c_str());
        AddNested(tone.GetListPath(), depth);
        if (!unreadable.empty())
            entries[at].problem = "plays the list \"" + tone.GetListPath() + "\": " + unreadable;
        if (tone.repeat == 0)
            return;
        entries[at].length = OpenToneEngine(tone).GetEnd();
        entries[at].problem = EndlessProblem;
    }

    void AddWave(const std::string& path) {
        ToneListEntry& entry = entries.back();
        const LSoundSource source = LWaveFile::OpenSource(path.c_str());
        if (source->status == SoundUsable)
            entry.length = source.GetEnd();
        if (LWaveFile::IsCutShort(path.c_str()))
            entry.problem = LWaveFile::CutShortText;
        if (source->status != SoundUsable && entry.problem.empty())
            entry.problem = LWaveFile::ExplainStatus(source->status);
    }

    void AddNested(const std::string& path, int depth) {
        const std::size_t at = entries.size() - 1;
        if (depth + 1 >= MaxListDepth) {
            entries[at].problem = "is nested too deep, or includes itself, and left out";
            return;
        }
        AddList(path, depth + 1);
        int total = 0;
        for (std::size_t i = at + 1; i < entries.size(); ++i)
            if (entries[i].depth == depth + 1)
                total = WrapAdd(total, entries[i].length.GetMilliseconds());
        entries[at].length = LSoundTime(total);
    }
};

} // namespace

ToneListReport ExamineToneList(const std::string& path) {
    Examination examination;
    examination.AddList(path, 0);
    return std::move(examination.report);
}

ToneListEntry ExamineToneListEntry(const std::string& line) {
    Examination examination;
    examination.AddItem(ParseToneListLine(line), {}, 0);
    return examination.report.entries.front();
}
