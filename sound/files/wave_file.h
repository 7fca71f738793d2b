#pragma once

#include "sound/files/wave_header.h"
#include "sound/sound_sink.h"
#include "sound/sound_source.h"
#include "sys/file.h"

#include <cstdint>
#include <string>

/// Reads and writes WAVE (RIFF) sound files. Read: PCM of up to 16 bits and mono IMA ADPCM, up to 196000 Hz.
/// Written: PCM of 8 or 16 bits.
class LWaveFile {
public:
    static constexpr int MaxRate = LWaveFileFormat::MaxRate;

    LWaveHeader header;
    LSoundSource source; ///< of a file that can't be used, one whose status says why (`LSoundStatus`)

    static LWaveFile Open(const char* path);
    /// The source alone.
    static LSoundSource OpenSource(const char* path);

    /// What such a status means, in words for the user.
    static const char* ExplainStatus(int status);

    /// Whether a file of this format holds that many frames.
    static LFailure CheckLength(double frames, int channels, int bits);

    static constexpr const char* CutShortText = "is cut short; silence stands for the rest";

    /// Creates the file, or goes on writing an existing one behind its first `startSample` frames. Up to 8
    /// bits are stored as 8, up to 16 as 16; for more the sink has nothing behind it.
    static LSoundSink OpenSinkPCM(const char* path, int rate, std::uint8_t channels, std::uint16_t bits,
                                  int startSample);

    /// Writes into what is open already, such as a pipe that can't be rewound: the header tells the length of
    /// `frames` frames from the start. A file of which less was written is corrected in the end.
    static LSoundSink OpenSinkStream(LReadWriteFile&& opened, int rate, std::uint8_t channels,
                                     std::uint16_t bits, int frames);
};
