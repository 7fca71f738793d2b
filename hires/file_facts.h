#pragma once

#include "sys/failure.h"

#include <cstdint>
#include <optional>
#include <string>

/// What a sound file tells of itself.
struct HiresFileFacts {
    LFailure failure{};                   ///< why it can't be read; then nothing else is known
    std::string kind{};                   ///< as in "FLAC, 24 bits"
    int rate = 0;                         ///< frames per second
    int channels = 0;                     ///< any number, also where it can't be used
    int bits = 0;                         ///< of its samples; 0 for floating point
    std::optional<std::int64_t> frames{}; ///< none where it does not tell
    bool isCutShort = false;              ///< the last of its frames are not there
    std::string program{};                ///< that has written it; empty where it does not tell
    std::string comment{};                ///< as well
};
