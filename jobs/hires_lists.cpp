#include "jobs/hires_lists.h"

#include "jobs/hires_files.h"
#include "sound/files/wave_file.h"
#include "sys/path.h"
#include "tone/tone_data.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace {

LSoundTime ToTime(std::int64_t ms) {
    return LSoundTime(static_cast<int>(std::min<std::int64_t>(ms, std::numeric_limits<int>::max())));
}

std::string Explain(const LFailure& failure) {
    const bool ofTheContent = failure.GetError() == 0;
    return (ofTheContent ? "" : "can't be read: ") + failure.GetReason();
}

/// One that ends has no problem, however long it is.
void ExamineTone(ToneListEntry& entry) {
    SonvireData tone;
    if (const LFailure unread = tone.ReadFromFile(entry.file.c_str())) {
        entry.problem = Explain(unread);
    } else if (!tone.IsList() && !entry.endless) {
        entry.problem.clear();
        entry.length = ToTime(tone.durationMs);
    }
}

void ExamineSound(ToneListEntry& entry) {
    const HiresTone opened = OpenSoundFile(entry.file, {}, std::make_shared<LSourceNews>());
    if (!opened.source) {
        entry.problem = Explain(opened.failure);
    } else {
        entry.problem = ReadSoundFileFacts(entry.file).isCutShort ? LWaveFile::CutShortText : "";
        entry.length = ToTime(opened.source->GetLength() * 1000 / opened.source->rate);
    }
}

/// What has no problem in the standard quality has none in the high one either, and what is cut short is so
/// in both, as long as sound files can be read.
bool IsSameInBoth(const ToneListEntry& entry) {
    const bool isUsable = entry.problem.empty() || entry.problem == LWaveFile::CutShortText;
    return isUsable && (CanReadSoundFiles() || HasExtension(entry.file, ".tdf"));
}

void Examine(ToneListEntry& entry) {
    if (entry.file.empty() || HasExtension(entry.file, ".tdl") || IsSameInBoth(entry))
        return;
    HasExtension(entry.file, ".tdf") ? ExamineTone(entry) : ExamineSound(entry);
}

/// A list is longer by what an entry of it has become longer.
void ExamineEntries(std::vector<ToneListEntry>& entries) {
    std::vector<ToneListEntry*> holders; // by depth
    for (ToneListEntry& entry : entries) {
        holders.resize(static_cast<std::size_t>(entry.depth));
        const LSoundTime before = entry.length;
        Examine(entry);
        const int more = entry.length.GetMilliseconds() - before.GetMilliseconds();
        for (ToneListEntry* list : holders)
            list->length = ToTime(std::int64_t{list->length.GetMilliseconds()} + more);
        holders.push_back(&entry);
    }
}

ToneListReport Correct(ToneListReport report) {
    ExamineEntries(report.entries);
    report.isNeverLeft = std::any_of(report.entries.begin(), report.entries.end(),
                                     [](const ToneListEntry& entry) { return entry.endless; });
    std::erase_if(report.notices, [](const LNotice& notice) { return notice.title == UnknownEntryTitle; });
    return report;
}

} // namespace

ToneListReport ExamineHiresList(const std::string& path) {
    return Correct(ExamineToneList(path));
}

ToneListReport ExamineHiresListEntry(const std::string& line) {
    return Correct(ExamineToneListEntry(line));
}
