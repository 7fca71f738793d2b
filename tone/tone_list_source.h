#pragma once

#include "sound/concatenation.h"
#include "tone/tone_list_file.h"

#include <string>

/// The most lists that are nested within each other, as by a list that includes itself; deeper ones are
/// silent.
inline constexpr int MaxListDepth = 32;
/// The most entries that a list opens altogether, those of nested lists included.
inline constexpr int MaxEntriesInAll = 100'000;

/// A concatenation whose items are the entries of a tone list, opened by their extensions (compared with
/// regard to case): .wav by the WAVE reader, .tdf by the engine, .tdl as a list of its own. Of any other
/// extension it is said in a message box, and the entry is skipped. A WAVE file that can't be used plays
/// nothing; a .tdf that can't be read plays as the default tone, which is endless, so that what follows is
/// never reached.
///
/// Entries wait unloaded, so that a list of thousands of files holds only the playing one open.
class SSFromList : public LSoundSourceCat {
public:
    /// `list` is only read. A relative path that leads to no file is looked for in `folder`, where the list
    /// file lies.
    explicit SSFromList(const LList<ToneItem>& list, const std::string& folder = {});

private:
    void AddFile(const std::string& path);
};

/// Reads a tone list file and opens it as one source. Missing, it is an empty list; nested too deep,
/// a source with nothing behind it.
LSoundSource OpenToneList(const std::string& path);

/// Where an entry's file is: `path` as it stands, or in `folder` where it is relative and found only there.
std::string FindListEntry(const std::string& path, const std::string& folder);
