#pragma once

#include "hires/list_source.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

/// A file that a list names, however often.
struct HiresListedSound {
    bool IsTone() const;

    std::string file;
    std::int64_t length;    ///< in frames
    HiresSourcePtr waiting; ///< of a sound file, until its first turn
};

/// What plays, one after the other.
struct HiresProgramme {
    static constexpr std::size_t Silence = SIZE_MAX;
    struct Entry {
        std::size_t sound; ///< its place, or `Silence`
        std::int64_t length;
    };

    std::int64_t GetLength() const;

    std::vector<HiresListedSound> sounds;
    std::vector<Entry> entries;
    std::optional<std::size_t> loopStart{}; ///< the entry that follows on the last one
    int channels = 1;
    double peak = -std::numeric_limits<double>::infinity(); ///< of all tones, in dBFS
    std::string loudest{};                                  ///< the file that has it
};

/// Finds what of a list can be played, and how long and loud it is. Each file is looked at once.
HiresProgramme FindHiresProgramme(const ToneListReport& list, const HiresSettings& settings,
                                  const HiresFileOpener& openFile);
