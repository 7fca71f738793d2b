#pragma once

#include "sound/stages/concatenation.h"
#include "tone/listed_file.h"
#include "tone/tone_list_file.h"
#include "tone/tone_list_nesting.h"
#include "tone/tone_list_report.h"

#include <string>
#include <unordered_map>

/// What goes along while a list and the lists in it are opened.
struct ToneListOpening {
    /// Counts an entry; where there are too many, that is reported, and the result is false.
    bool MayAddEntry();
    /// Opens a list, with its entries in the report. One that is left out is a source with nothing behind it;
    /// `problem` then says why.
    LSoundSource OpenList(const std::string& path, std::string& problem);
    /// Notes that something of a list is left out.
    void Tell(const std::string& path, const std::string& why);

    ToneListReport report{};
    ToneListNesting nesting{};
    ListedFiles files{};
    std::unordered_map<std::string, LList<ToneItem>> lists{}; ///< by path, each read once
    bool full = false;
};

/// A concatenation whose items are the entries of a tone list, opened by their extensions (compared with
/// regard to case): .wav by the WAVE reader, .tdf by the engine, .tdl as a list of its own. One of any other
/// extension is noticed and skipped. A WAVE file that can't be used, or has more than two channels, plays
/// nothing; a .tdf that can't be read plays as the default tone, which is endless, so that what follows is
/// never reached.
///
/// Entries wait unloaded, so that a list of thousands of files holds only the playing one open.
class SSFromList : public LSoundSourceCat {
public:
    /// `list` is only read. A relative path is looked for in `listFolder` first, where the list file
    /// lies.
    SSFromList(const LList<ToneItem>& list, const std::string& listFolder, ToneListOpening& wholeOpening);

private:
    void AddFile(const std::string& written);
    LSoundSource OpenFile(const ListedFile& file, ToneListEntry& entry);
    LSoundSource OpenTone(const SonvireData& tone, ToneListEntry& entry);
    LSoundSource OpenNested(const std::string& path, ToneListEntry& entry);

    std::string folder;
    ToneListOpening& opening;
};

/// Reads a tone list file and opens it as one source. Missing, it is an empty list. A list within itself is
/// left out, and so is what exceeds `MaxListDepth` and `MaxListEntries`. The report, where one is asked for,
/// says what is wrong.
LSoundSource OpenToneList(const std::string& path, ToneListReport* report = nullptr);
