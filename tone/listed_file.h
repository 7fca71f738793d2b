#pragma once

#include "sound/sound_source.h"
#include "tone/tone_data.h"
#include "tone/tone_list_report.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>

/// A file that a list names, as it was found. What it is, its extension says.
struct ListedFile {
    /// Looks at it. `written` is what stands in the list, whose folder is searched first.
    ListedFile(const std::string& written, const std::string& listFolder);

    std::string extension;    ///< as it is written
    ToneListEntry entry;      ///< without its depth, and without the length of what is opened as a list
    SonvireData tone;         ///< of a tone
    LSoundSource wave;        ///< of a WAVE file, which waits; nothing behind it where that is left out
    bool isTooLong = false;   ///< a tone that is left out
    bool isNeverLeft = false; ///< a tone without an end, or another in its place

private:
    void FindWave();
    void FindTone();
};

/// The files of one opening, each looked at once however often the lists name it. Of very many the earlier
/// ones are forgotten.
class ListedFiles {
public:
    /// Good until the next call.
    const ListedFile& Find(const std::string& written, const std::string& listFolder);

private:
    static constexpr std::size_t MostKept = 256;
    std::map<std::pair<std::string, std::string>, ListedFile> known; ///< by folder and name
};

/// Where an entry's file is: in `folder` where it is relative and found there, else `path` as it stands.
std::string FindListEntry(const std::string& path, const std::string& folder);
