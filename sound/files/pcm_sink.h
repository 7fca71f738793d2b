#pragma once

#include "sound/sample_format.h"
#include "sound/sound_sink.h"
#include "sys/file.h"
#include "sys/write_pace.h"

#include <cstdint>
#include <vector>

/// Writes a PCM WAVE file: a 46-byte header, which is provisional until the sink is destroyed, then the
/// frames. `lengthHint` counts the frames written. What doesn't reach the file sets `SinkFellShort`.
class LSNKPCMFileBase : public LSoundSinkBase {
public:
    ~LSNKPCMFileBase() override { LSNKPCMFileBase::Finish(); }

    /// Cuts the file to `sample` frames and goes on from there; a place beyond what was written is ignored.
    void Seek(int sample) override;
    void Finish() override;

protected:
    /// Keeps the first `startSample` frames of an existing file, as far as it has them, and drops the rest. A
    /// file that can't be opened sets `SinkUnusable`.
    LSNKPCMFileBase(const char* path, int rate, std::uint8_t channelCount, std::uint32_t sampleBytes,
                    int startSample);

    /// Writes from where `opened` stands, which may be a pipe, with a header for `totalFrames` frames.
    LSNKPCMFileBase(LReadWriteFile&& opened, int rate, std::uint8_t channelCount, std::uint32_t sampleBytes,
                    int totalFrames);

    void WriteFrames(const void* data, int frames);

private:
    std::int64_t GetOffsetOf(int frame) const;
    /// Writes the header at the file's offset, with the true length when `final`, else with the provisional
    /// one.
    void WriteRIFF(bool final);
    void WriteHeader(std::uint32_t dataBytes);
    void NoteOpened();
    void Note(const LFailure& writing);

    std::uint32_t bytesPerSample;
    std::uint32_t bytesPerFrame;
    LReadWriteFile file;
    std::int64_t start = 0; ///< the header's offset in the file; -1 in a pipe
    LWritePace pace{start};
};

/// The same for one sample format.
template <class Format>
class LSNKPCMFile : public LSNKPCMFileBase {
public:
    LSNKPCMFile(const char* path, int rate, std::uint8_t channelCount, int startSample);
    LSNKPCMFile(LReadWriteFile&& opened, int rate, std::uint8_t channelCount, int totalFrames);

    void Write(const int* buffer, int frames) override;

private:
    std::vector<typename Format::Stored> stored; ///< 8192 frames as they go into the file
};
