#include "hires/files/missing_frames.h"

#include "sound/files/wave_format.h"

#include <array>
#include <cstdio>
#include <sstream>
#include <string>

namespace {

/// Lines of the log that tell two numbers, the header's one and the true one.
struct Line {
    const char* form; ///< for `sscanf`
    bool inFrames;    ///< and the other way around
};
constexpr Line Lines[] = {
    {" data : %lld (should be %lld", false},      // WAVE
    {" riff : %lld (should be %lld", false},      // W64
    {" SSND : %lld (should be %lld", false},      // AIFF
    {" Data Size : %lld (should be %lld", false}, // AU
    {" *** Calculated frame count %lld does not match value from 'ds64' chunk of %lld", true},
};

/// 0 where samples have no bytes of their own.
int GetFrameBytes(const SF_INFO& info) {
    switch (info.format & SF_FORMAT_SUBMASK) {
    case SF_FORMAT_PCM_S8:
    case SF_FORMAT_PCM_U8:
        return info.channels;
    case SF_FORMAT_PCM_16:
        return 2 * info.channels;
    case SF_FORMAT_PCM_24:
        return 3 * info.channels;
    case SF_FORMAT_PCM_32:
    case SF_FORMAT_FLOAT:
        return 4 * info.channels;
    case SF_FORMAT_DOUBLE:
        return 8 * info.channels;
    default:
        return 0;
    }
}

/// Whether a header tells a length: not where it was written into a pipe.
bool IsTold(long long bytes) {
    const bool isOfSox = bytes >= 0x7FFF0000 && bytes <= INT32_MAX;
    return !isOfSox && (bytes > UINT32_MAX || IsDataLengthKnown(static_cast<std::uint32_t>(bytes)));
}

sf_count_t CountByLine(const std::string& text, const SF_INFO& info) {
    for (const Line& line : Lines) {
        long long told = 0, there = 0;
        if (std::sscanf(text.c_str(), line.form, &told, &there) != 2)
            continue;
        if (line.inFrames)
            return there - told;
        const int bytes = GetFrameBytes(info);
        return bytes > 0 && IsTold(told) ? (told - there + bytes - 1) / bytes : 0;
    }
    return 0;
}

} // namespace

sf_count_t CountMissingFrames(SNDFILE* file, const SF_INFO& info) {
    std::array<char, 16384> log{};
    Sndfile().command(file, SFC_GET_LOG_INFO, log.data(), static_cast<int>(log.size()));
    std::istringstream lines(log.data());
    for (std::string line; std::getline(lines, line);)
        if (const sf_count_t missing = CountByLine(line, info); missing > 0)
            return missing;
    return 0;
}
