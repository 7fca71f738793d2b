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

    bool HasRead(const LOpenFile& file) const { return status == SoundUsable && file.GetState() == state; }
    /// True where more data is promised than the file holds; what is missing reads as silence.
    bool IsCutShort() const {
        return status == SoundUsable && IsDataLengthKnown(dataBytes) && dataStart + dataBytes > state.size;
    }
};

/// Reads the header from the file's beginning on. One with a status has only that.
LWaveHeader ReadWaveHeader(LReadFile& file);
