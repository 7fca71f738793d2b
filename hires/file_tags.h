#pragma once

#include <cstddef>
#include <string>

/// What a file tells of itself, where its kind has a place for that (all but W64).
struct HiresFileTags {
    /// Of a comment, which is cut there: libsndfile reads no AIFF file with one of 16000.
    static constexpr std::size_t MostBytes = 8000;

    std::string program; ///< with its version; libsndfile adds its own
    std::string comment; ///< what the sound is
};
