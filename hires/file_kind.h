#pragma once

#include "sys/failure.h"

#include <cstdint>
#include <span>
#include <string>

/// What a sample is stored as.
enum class HiresSamples { Int16, Int24, Int32, Float };

/// What is to be stored.
struct HiresFileFormat {
    int rate;     ///< frames per second
    int channels; ///< 1 or 2
    HiresSamples samples = HiresSamples::Int24;
    std::int64_t frames = 0; ///< how many there will be: some kinds hold only so many
    bool dither = true;      ///< with 16 bits; the others need none
    std::uint64_t seed = 1;  ///< of the dither
};

/// A kind of sound file that can be written. All of them are static.
class HiresFileKind {
public:
    enum class Container { Wave, Flac, Aiff, W64, Caf, Raw };

    /// In the order in which they are offered, WAVE first.
    static std::span<const HiresFileKind> GetAll();
    /// By the name's extension, in any case; null where no kind has it.
    static const HiresFileKind* Find(const std::string& path);
    /// All extensions, as in ".wav, .flac or .caf".
    static std::string ListExtensions();

    /// Whether such a file can hold this; the reason tells what it can hold.
    LFailure Check(const HiresFileFormat& format) const;

    Container container;
    const char* name;    ///< as in "a WAVE file"
    const char* article; ///< of the name
    const char*
        extensions[2]; ///< with the dot, in small letters, the usual one first; the second may be null
};
