#pragma once

#include "sys/failure.h"
#include "sys/notice.h"

#include <map>
#include <string>
#include <vector>

struct ToneListReport;

/// True for a line of a list, and a row that shows it, that stands for a silence or should: it contains the
/// unit.
/// Kept quirk: `ParseToneListLine` takes it for one only where it also ends with a full stop.
bool IsSilence(const std::string& entry);

/// True for the file of a list that the user has not saved.
bool IsTemporaryList(const std::string& path);
/// True for a file whose lines are entries: a tone list by its extension (.tdl, .tmp) in any case, or a
/// temporary one.
bool IsListFile(const std::string& path);

/// Creates an empty file for an unsaved list, which every user may read and write; it has no extension.
/// `path` is its name, empty where it could not be created.
LFailure CreateTemporaryList(std::string& path);

/// What a file is in a list.
struct ExpandedEntry {
    std::vector<std::string> entries;           ///< in playing order
    std::vector<LNotice> notices;               ///< of what is left out, and of lists that can't be read
    std::map<std::string, std::string> written; ///< of what lies beside the list: its own line for the entry
};

/// A list's entries, with those of the lists in it in their place; of any other file the file itself. Entries
/// that lie beside their list are given with their folder.
ExpandedEntry ExpandListEntry(const std::string& path);
/// The same for a file that is a list whatever its name.
ExpandedEntry ExpandList(const std::string& path);

/// Copies a list byte for byte, but for entries that are looked for beside it, which a copy in another folder
/// names in full.
LFailure CopyListFile(const std::string& from, const std::string& to);

/// True where the list that was opened with this report, or a list in it, plays the file, or is the file.
bool IsReadByList(const std::string& file, const ToneListReport& report);

/// Whether the file can be an entry of a list, or a list itself.
LFailure CheckListEntry(const std::string& path);
