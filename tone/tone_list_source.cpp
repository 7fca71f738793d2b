#include "tone/tone_list_source.h"

#include "sound/files/waiting_wave.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_engine.h"

#include <utility>

namespace {

constexpr int MaxEntryChannels = 2; // what a list can bring to one layout

/// Kept quirk: from the last "." of the whole path on, also where that stands in a folder's name.
std::string GetEntryExtension(const std::string& path) {
    const std::size_t dot = path.rfind('.');
    return dot == std::string::npos ? std::string() : path.substr(dot);
}

bool IsEverLeft(const SonvireData& tone) {
    return tone.IsList() ? tone.repeat == 0 : tone.IsFinite() && tone.GetDurationFrames() > 0;
}

} // namespace

bool ToneListOpening::MayAddEntry() {
    if (nesting.CountEntry())
        return true;
    if (!std::exchange(full, true)) {
        const std::string& list = nesting.GetOutermost();
        report.entries.push_back(
            {.file = list, .depth = 0, .length = {}, .problem = ToneListNesting::TooManyEntries});
        Tell(list, ToneListNesting::TooManyEntries);
    }
    return false;
}

LSoundSource ToneListOpening::OpenList(const std::string& path, std::string& problem) {
    if (const LFailure left = nesting.Enter(path)) {
        problem = left.GetReason();
        Tell(path, problem);
        return {};
    }
    report.files.push_back(path);
    LList<ToneItem> list;
    GetToneListFromFile(list, path.c_str());
    LSoundSource source = SSFromList(list, GetFolder(path), *this).OpenSource();
    nesting.Leave();
    return source;
}

LSoundSource ToneListOpening::OpenWave(ToneListEntry& entry) {
    const LWaveFile wave = LWaveFile::Open(entry.file.c_str());
    if (wave.source->status != SoundUsable) {
        if (entry.problem.empty())
            entry.problem = LWaveFile::ExplainStatus(wave.source->status);
        return {};
    }
    if (wave.source->channels > MaxEntryChannels) {
        entry.problem = "has " + std::to_string(wave.source->channels) +
                        " channels and is left out: lists play mono and stereo";
        return {};
    }
    if (wave.header.IsCutShort())
        entry.problem = LWaveFile::CutShortText;
    entry.length = wave.source.GetEnd();
    return LSoundSource::Make<LWaitingWave>(entry.file, wave.source, report.news);
}

void ToneListOpening::Tell(const std::string& path, const std::string& why) {
    if (std::optional<LNotice> notice = nesting.Tell(path, why))
        report.notices.push_back(std::move(*notice));
}

SSFromList::SSFromList(const LList<ToneItem>& list, const std::string& listFolder,
                       ToneListOpening& wholeOpening)
    : folder(listFolder),
      opening(wholeOpening) {
    for (const ToneItem& item : list) {
        if (!opening.MayAddEntry())
            break;
        if (item.IsSilence()) {
            AddSilence(item.GetLength());
            opening.report.entries.push_back(
                {.file = {}, .depth = opening.nesting.GetDepth(), .length = item.GetLength(), .problem = {}});
        } else {
            AddFile(item.GetPath());
        }
    }
}

void SSFromList::AddFile(const std::string& written) {
    ToneListReport& report = opening.report;
    ToneListEntry entry{.file = FindListEntry(written, folder),
                        .depth = opening.nesting.GetDepth(),
                        .length = {},
                        .problem = {}};
    entry.problem = CheckReadable(entry.file).GetReason();
    report.files.push_back(entry.file);
    const std::size_t place = report.entries.size(); // before the entries of a list
    report.entries.push_back(entry);
    const LSoundSource source = OpenFile(GetEntryExtension(written), entry);
    report.entries[place] = std::move(entry);
    AddSource(source);
    source->Unload();
}

LSoundSource SSFromList::OpenFile(const std::string& extension, ToneListEntry& entry) {
    if (extension == ".wav")
        return opening.OpenWave(entry);
    if (extension == ".tdf")
        return OpenTone(entry);
    if (extension == ".tdl")
        return OpenNested(entry.file, entry);
    entry.problem = "is of an unknown type and left out";
    opening.report.notices.push_back(
        {.title = "Unrecognized file type",
         .text = "File type of extension \"" + extension + "\" is not recognized as a tone file.",
         .mayBeLast = true});
    return {};
}

/// Kept quirk: an endless, looped or unreadable tone is never left, and what follows never reached.
LSoundSource SSFromList::OpenTone(ToneListEntry& entry) {
    SonvireData tone;
    if (tone.ReadFromFile(entry.file.c_str()))
        entry.problem = (entry.problem.empty() ? "is not a whole tone" : entry.problem) +
                        "; an endless sine plays, and nothing behind it";
    else if (entry.endless = !IsEverLeft(tone); entry.endless)
        entry.problem = "is endless; nothing behind it plays";
    if (const LFailure uncountable = tone.CheckCountable()) {
        entry.problem = uncountable.GetReason() + "; it is left out";
        return {};
    }
    if (!tone.IsList()) {
        LSoundSource source = OpenToneEngine(tone);
        entry.length = source.GetEnd();
        return source;
    }
    const std::string path = tone.GetListPath();
    if (const LFailure unreadable = CheckReadable(path))
        entry.problem = "plays the list \"" + path + "\": " + unreadable.GetReason();
    const LSoundSource list = OpenNested(path, entry);
    LSoundSource source = LoopTone(tone, list);
    if (tone.repeat != 0)
        entry.length = source.GetEnd();
    return source;
}

/// The length is the sum of what stands in the list.
LSoundSource SSFromList::OpenNested(const std::string& path, ToneListEntry& entry) {
    const std::vector<ToneListEntry>& entries = opening.report.entries;
    const std::size_t first = entries.size();
    LSoundSource source = opening.OpenList(path, entry.problem);
    int total = 0;
    for (std::size_t i = first; i < entries.size(); ++i)
        if (entries[i].depth == entry.depth + 1)
            total = WrapAdd(total, entries[i].length.GetMilliseconds());
    entry.length = LSoundTime(total);
    return source;
}

LSoundSource OpenToneList(const std::string& path, ToneListReport* report) {
    ToneListOpening opening;
    std::string unused; // the outermost list is never left out
    LSoundSource source = opening.OpenList(path, unused);
    if (report)
        *report = std::move(opening.report);
    return source;
}

std::string FindListEntry(const std::string& path, const std::string& folder) {
    if (folder.empty() || folder == "." || path.empty() || path.front() == '/')
        return path;
    const std::string beside = folder + "/" + path;
    return FileExists(beside) ? beside : path;
}
