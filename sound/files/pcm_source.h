#pragma once

#include "sound/sample_format.h"
#include "sound/sound_source.h"
#include "sys/file.h"

#include <chrono>
#include <cstdint>

/// Reads the data chunk of a PCM WAVE file. The position counts the frames that were asked for: it may be
/// negative or beyond the end, and what lies there is silence, as is what the file is cut short of. A file
/// whose length is not known yet streams: its end is looked up anew, so that it can be read while another
/// program still writes it. Nobody does where it was not changed for 5 seconds before it was opened, or has
/// not grown for as long since; it then has the length that it has.
class LSRCPCMFileBase : public LSoundSourceBase {
public:
    int GetPositionSample() const override { return position; }
    /// From the header; while that is not final, from the file's size.
    int GetEndSample() const override;
    void Seek(int sample) override;
    bool IsStreaming() const override { return endSample == EndUnknown; }

protected:
    /// Takes over `opened`, which stands at the first byte of the data chunk's body. No bytes per frame make
    /// `SoundInvalidFormat`, no open file `SoundCannotOpen`.
    LSRCPCMFileBase(LReadFile&& opened, int rate, std::uint8_t channelCount, int limit,
                    std::uint32_t bytesPerSample, std::uint32_t dataBytes);

    /// Moves the position on by `count` frames and returns which of them the file may have: `leading` frames
    /// of silence first, then `wanted` frames of the file; silence is what remains.
    struct Request {
        int leading;
        int wanted;
    };
    Request Advance(int count);

    mutable LReadFile file; ///< looking up the end moves its offset and puts it back
    std::uint32_t bytesPerFrame;

private:
    using Clock = std::chrono::steady_clock;
    static constexpr int EndUnknown = -1;

    int CountFramesInFile() const;
    bool HasStoppedGrowing() const;

    std::int64_t dataStart;
    int position = 0;
    mutable int endSample;
    mutable std::int64_t lastSize;
    mutable Clock::time_point lastGrowth = Clock::now();
};

/// The same for one sample format.
template <class Format>
class LSRCPCMFile : public LSRCPCMFileBase {
public:
    LSRCPCMFile(LReadFile&& opened, int rate, std::uint8_t channelCount, std::uint32_t dataBytes);

    void Read(int* buffer, int frames) override;

private:
    int ReadSamples(int* buffer, int frames);
};
