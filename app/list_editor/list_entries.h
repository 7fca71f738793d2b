#pragma once

#include <string>
#include <vector>

struct ToneListReport;

/// True for a line of a list, and a row that shows it, that stands for a silence or is meant to: it contains
/// the unit. `ParseToneListLine` takes it for one only where it also ends with a full stop; both are meant.
bool IsSilence(const std::string& entry);

/// True for the file of a list that the user has not saved.
bool IsTemporaryList(const std::string& path);
/// True for a file whose lines are entries: a tone list by its extension (.tdl, .tmp), or a temporary one.
bool IsListFile(const std::string& path);

/// Creates an empty file for an unsaved list, which every user may read and write; it has no extension. The
/// empty path, with the reason in `errno`, where that failed.
std::string CreateTemporaryList();

/// What a file is in a list, in playing order: a list's entries, with those of the lists in it in their
/// place, and else the file itself. Entries that lie beside their list are given with their folder. A list
/// that can't be opened has none, and is told in a message box.
std::vector<std::string> ExpandListEntry(const std::string& path);

/// Copies a list byte for byte, but for entries that are looked for beside it, which a copy in another folder
/// names in full. The answer of `LFile::SaveFile`.
bool CopyListFile(const std::string& from, const std::string& to);

/// True where the list that was opened with this report, or a list in it, plays the file, or is the file.
bool IsReadByList(const std::string& file, const ToneListReport& report);

/// Why a list can't be saved under this name, in words for the user; empty where it can.
std::string WhyNoListName(const std::string& path);
/// Why the file can't be an entry of a list, in words for the user; empty where it can.
std::string WhyNoListEntry(const std::string& path);
