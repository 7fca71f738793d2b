#pragma once

#include "sound/sound_time.h"
#include "sys/failure.h"

#include <forward_list>
#include <string>
#include <vector>

/// A singly linked list that owns its items.
template <class Item>
using LList = std::forward_list<Item>;

/// One entry of a tone list: a file to play, or a silence where the path is empty.
class ToneItem {
public:
    static constexpr std::size_t MaxPathLength = 259;

    explicit ToneItem(LSoundTime silence) : length(silence) {}
    explicit ToneItem(const std::string& file) : path(file.substr(0, MaxPathLength)) {}

    bool IsSilence() const { return path.empty(); }
    LSoundTime GetLength() const { return length; } ///< 0 for a file
    const std::string& GetPath() const { return path; }

private:
    LSoundTime length;
    std::string path;
};

/// How a silence is written: its length in ms, directly followed by this.
inline constexpr const char* SilenceSuffix = "ms silence.";

/// The most entries that a list plays, those of the lists in it included.
inline constexpr int MaxListEntries = 100'000;

/// One line of a list file as an entry.
ToneItem ParseToneListLine(std::string line);

/// The lines of a tone list file as they stand, of which the last one plays first. A file with too many is
/// read for one more than can play.
LFailure ReadToneListLines(std::vector<std::string>& lines, const char* path);

/// Reads a tone list file (docs/file-formats.md): adds an item for every line at the head of `list`, so that
/// the file's last line, which plays first, comes out first. A file that can't be opened adds nothing.
void GetToneListFromFile(LList<ToneItem>& list, const char* path);

/// Writes the rows, given in playing order, as `LFile::SaveFile` does.
LFailure WriteToneListFile(const char* path, const std::vector<std::string>& rows);
