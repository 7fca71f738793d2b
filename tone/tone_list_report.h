#pragma once

#include "sound/sound_time.h"
#include "sound/source_news.h"
#include "sys/notice.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

/// What an entry of a tone list is and whether it can be used.
struct ToneListEntry {
    std::string file;     ///< empty for a silence
    int depth = 0;        ///< 0 in the list itself, 1 in a list that it includes, and so on
    LSoundTime length;    ///< how long it plays
    std::string problem;  ///< why it doesn't play as its user would expect; empty where it does
    bool endless = false; ///< what stands behind it is never reached
};

/// How long entries play one after the other, as far as that is known.
struct ToneListLength {
    std::int64_t ms = 0;
    int unknown = 0; ///< entries with a problem, which are not in it

    ToneListLength& operator+=(const ToneListLength& more);
};

/// Of the notice of an entry that is of no kind which a list plays.
inline constexpr const char* UnknownEntryTitle = "Unrecognized file type";

/// What opening a list finds.
struct ToneListReport {
    /// Of all that plays, in the lists of the list as well.
    ToneListLength Measure() const;
    /// As it is counted, what is endless as a minute; also where that is more than frames can be counted.
    std::int64_t CountMilliseconds() const;

    /// In playing order, an included list before its own entries. Where there are too many, the last one
    /// names the list itself and has that problem.
    std::vector<ToneListEntry> entries;
    bool isNeverLeft = false;     ///< one of them goes on for ever
    std::set<std::string> files;  ///< every file that is read, lists and the list itself included
    std::vector<LNotice> notices; ///< what whoever plays the list is told
    /// What happens to its files while it plays.
    std::shared_ptr<LSourceNews> news = std::make_shared<LSourceNews>();
};

/// Looks through a tone list file and the lists in it. Opens every file for a moment; reads no sound.
ToneListReport ExamineToneList(const std::string& path);

/// The same for a list of this one line; its first entry is what stands there.
ToneListReport ExamineToneListEntry(const std::string& line);
