#include "tone/tone_list_source.h"

#include "sound/files/waiting_wave.h"
#include "sys/path.h"
#include "tone/tone_engine.h"

#include <utility>

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
    report.files.insert(path);
    const auto [list, isNew] = lists.try_emplace(path);
    if (isNew)
        GetToneListFromFile(list->second, path.c_str());
    LSoundSource source = SSFromList(list->second, GetFolder(path), *this).OpenSource();
    nesting.Leave();
    return source;
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
    const ListedFile& file = opening.files.Find(written, folder);
    ToneListReport& report = opening.report;
    const std::size_t place = report.entries.size(); // before the entries of a list
    ToneListEntry entry = file.entry;
    entry.depth = opening.nesting.GetDepth();
    report.files.insert(entry.file);
    report.entries.push_back(entry);
    report.isNeverLeft = report.isNeverLeft || file.isNeverLeft;
    const LSoundSource source = OpenFile(file, entry);
    report.entries[place] = std::move(entry);
    AddSource(source);
    source->Unload();
}

LSoundSource SSFromList::OpenFile(const ListedFile& file, ToneListEntry& entry) {
    ToneListReport& report = opening.report;
    if (file.extension == ".wav")
        return file.wave->status == SoundUsable
                   ? LSoundSource::Make<LWaitingWave>(entry.file, file.wave, report.news)
                   : LSoundSource();
    if (file.extension == ".tdf")
        return file.isTooLong ? LSoundSource() : OpenTone(file.tone, entry);
    if (file.extension == ".tdl")
        return OpenNested(entry.file, entry);
    report.notices.push_back(
        {.title = UnknownEntryTitle,
         .text = "File type of extension \"" + file.extension + "\" is not recognized as a tone file.",
         .mayBeLast = true});
    return {};
}

LSoundSource SSFromList::OpenTone(const SonvireData& tone, ToneListEntry& entry) {
    if (!tone.IsList()) {
        LSoundSource source = OpenToneEngine(tone);
        entry.length = source.GetEnd();
        return source;
    }
    const SonvireData kept = tone; // the files in the list may take its place
    const LSoundSource list = OpenNested(kept.GetListPath(), entry);
    LSoundSource source = LoopTone(kept, list);
    if (kept.repeat != 0)
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
