#include "tone/listed_file.h"

#include "sound/files/waiting_wave.h"
#include "sys/file.h"
#include "sys/path.h"

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

ListedFile::ListedFile(const std::string& written, const std::string& listFolder)
    : extension(GetEntryExtension(written)) {
    entry.file = FindListEntry(written, listFolder);
    if (const LFailure unreadable = CheckReadable(entry.file))
        entry.problem = "can't be read: " + unreadable.GetReason();
    if (extension == ".wav")
        FindWave();
    else if (extension == ".tdf")
        FindTone();
    else if (extension != ".tdl")
        entry.problem = "is of an unknown type and left out";
}

void ListedFile::FindWave() {
    const LWaveFile found = LWaveFile::Open(entry.file.c_str());
    if (found.source->status != SoundUsable) {
        if (entry.problem.empty())
            entry.problem = LWaveFile::ExplainStatus(found.source->status);
        return;
    }
    if (found.source->channels > MaxEntryChannels) {
        entry.problem = "has " + std::to_string(found.source->channels) +
                        " channels and is left out: lists play mono and stereo";
        return;
    }
    if (found.header.IsCutShort())
        entry.problem = LWaveFile::CutShortText;
    entry.length = found.source.GetEnd();
    wave = LSoundSource::Make<LWaitingWave>(entry.file, found.source, nullptr);
}

/// Kept quirk: an endless, looped or unreadable tone is never left, and what follows never reached.
void ListedFile::FindTone() {
    if (tone.ReadFromFile(entry.file.c_str()))
        entry.problem = (entry.problem.empty() ? "is not a whole tone" : entry.problem) +
                        "; an endless sine plays, and nothing behind it";
    else if (entry.endless = !IsEverLeft(tone); entry.endless)
        entry.problem = "is endless; nothing behind it plays";
    if (const LFailure uncountable = tone.CheckCountable()) {
        entry.problem = uncountable.GetReason() + "; it is left out";
        isTooLong = true;
    } else if (tone.IsList()) {
        const std::string list = tone.GetListPath();
        if (const LFailure unreadable = CheckReadable(list))
            entry.problem = "plays the list \"" + list + "\": " + unreadable.GetReason();
    }
    isNeverLeft = !isTooLong && !IsEverLeft(tone);
}

const ListedFile& ListedFiles::Find(const std::string& written, const std::string& listFolder) {
    const std::pair place(listFolder, written);
    if (const auto found = known.find(place); found != known.end())
        return found->second;
    if (known.size() == MostKept)
        known.clear();
    return known.try_emplace(place, written, listFolder).first->second;
}

std::string FindListEntry(const std::string& path, const std::string& folder) {
    if (folder.empty() || folder == "." || path.empty() || path.front() == '/')
        return path;
    const std::string beside = folder + "/" + path;
    return FileExists(beside) ? beside : path;
}
