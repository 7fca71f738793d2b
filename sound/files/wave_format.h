#pragma once

#include "sys/failure.h"

#include <cstdint>

class LOpenFile;

/// Converts between little-endian, as WAVE files have it, and the host's byte order.
std::uint16_t LEndianReverse(std::uint16_t value);
std::uint32_t LEndianReverse(std::uint32_t value);

/// A data length that is not known yet, as a writer at work leaves it (the RIFF length is then 0xFFFFFFFF)...
inline constexpr std::uint32_t ProvisionalDataBytes = 0xFFFFFFD9;
/// ...and as other programs write it that stream into a pipe.
inline constexpr std::uint32_t UnknownDataBytes = 0xFFFFFFFF;

constexpr bool IsDataLengthKnown(std::uint32_t dataBytes) {
    return dataBytes != ProvisionalDataBytes && dataBytes != UnknownDataBytes;
}

/// What a "fmt " chunk says, in the host's byte order.
struct LWaveFileFormat {
    static constexpr std::uint16_t TagPCM = 1;
    static constexpr std::uint16_t TagIMAADPCM = 0x0011;
    static constexpr int HeaderBytes = 46;
    static constexpr int MaxRate = 196000;

    std::uint16_t tag = TagPCM;
    std::uint16_t channels = 1;
    std::uint32_t sampleRate = 44100;
    std::uint16_t blockAlign =
        0; ///< bytes per frame (PCM) or per compressed block (IMA ADPCM); not used for writing
    std::uint16_t bitsPerSample = 16;

    /// Writes the 46 bytes that every file starts with at the file's offset, in one write. The average and
    /// the block alignment are worked out here; of the channel count the low 8 bits are used. See
    /// docs/file-formats.md.
    LFailure WritePCMHeader(LOpenFile& file, std::uint32_t dataBytes) const;
};
