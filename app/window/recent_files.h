#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The tones and lists that were opened or saved last, the newest first; kept in the settings.
class RecentFiles {
public:
    static constexpr std::size_t Most = 10;

    RecentFiles();

    /// Puts a file to the front.
    void Add(const std::string& path);
    /// Empty where there is none at this place.
    std::string GetPath(std::size_t place) const;
    /// How a menu names it: "log-sweep.tdf  (/home/ann/tones)".
    std::string GetLabel(std::size_t place) const;

private:
    /// Each file keeps its place in the settings, which hold the order of the places beside them: so a new
    /// one costs two entries, not ten.
    struct File {
        char slot; ///< '0'..'9'
        std::string path;
    };

    char FindFreeSlot();

    std::vector<File> files;
};
