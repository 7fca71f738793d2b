#pragma once

#include "sound/files/wave_format.h"
#include "sound/sound_source.h"
#include "sys/file.h"

/// What the header of a WAVE file says, read once for any number of sources.
struct LWaveHeader {
    std::uint8_t status = SoundInvalidFormat; ///< why it can't be played (`LSoundStatus`)
    LFileState state{};                       ///< of the file when it was read
    LWaveFileFormat format{};
    std::uint32_t dataBytes = 0; ///< as it stands there
    std::int64_t dataStart = 0;  ///< the offset of the first sample
    bool isSettled = false;      ///< unchanged for a second

    /// True where a file of this state is as it was when it was read. What had been changed right before may
    /// have been changed again at the same time, as far as the file system tells.
    bool IsOf(const LFileState& now) const { return isSettled && now == state; }
    /// True where more data is promised than the file holds; what is missing reads as silence.
    bool IsCutShort() const {
        return status == SoundUsable && IsDataLengthKnown(dataBytes) && dataStart + dataBytes > state.size;
    }
};

/// Reads the header from the file's beginning on, and leaves it at the first sample. One with a status has
/// only that. The headers of the last 64 files are remembered: some have thousands of chunks, and some files
/// are opened thousands of times. Thread: any. Blocks: no. Allocates: yes.
LWaveHeader ReadWaveHeader(LReadFile& file);
