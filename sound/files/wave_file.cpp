#include "sound/files/wave_file.h"

#include "sound/files/ima_source.h"
#include "sound/files/pcm_sink.h"
#include "sound/files/pcm_source.h"
#include "sound/files/wave_format.h"

#include <array>
#include <cstring>
#include <optional>

namespace {

/// A source of the file, which stands at its first sample.
LSoundSource MakeSource(LReadFile& file, const LWaveHeader& header) {
    const int rate = static_cast<int>(header.format.sampleRate);
    const auto channels = static_cast<std::uint8_t>(header.format.channels);
    if (header.format.tag == LWaveFileFormat::TagIMAADPCM)
        return LIMAWaveOpenSource(file, header.dataBytes, rate, channels, header.format.blockAlign);
    if (header.format.bitsPerSample > 8)
        return LSoundSource::Make<LSRCPCMFile<LSFLE16>>(std::move(file), rate, channels, header.dataBytes);
    return LSoundSource::Make<LSRCPCMFile<LSFU8>>(std::move(file), rate, channels, header.dataBytes);
}

} // namespace

LWaveFile LWaveFile::Open(const char* path) {
    LSharedReadFile file(path);
    LWaveFile opened;
    opened.header = ReadWaveHeader(file);
    opened.source =
        opened.header.status == SoundUsable
            ? MakeSource(file, opened.header)
            : LSoundSource::Make<LSoundSourceError>(static_cast<LSoundStatus>(opened.header.status));
    return opened;
}

LSoundSource LWaveFile::OpenSource(const char* path) {
    return Open(path).source;
}

LFailure LWaveFile::CheckLength(double frames, int channels, int bits) {
    const double bytes = frames * channels * (bits / 8.0);
    const bool fits =
        frames <= 2147483647.0 && bytes <= 4294967040.0; // counts of 31 and 32 bits, less the headers
    return fits ? LFailure() : "is too long for a WAVE file, which holds 4 GiB";
}

const char* LWaveFile::ExplainStatus(int status) {
    switch (status) {
    case SoundNothing:
        return "is of an unsupported kind: IMA ADPCM is supported in mono only";
    case SoundInvalidFormat:
        return "is damaged or no WAVE file";
    case SoundCannotOpen:
        return "can't be opened";
    case SoundUnsupportedFormat:
        return "is of an unsupported kind: PCM of 8 or 16 bits and mono IMA ADPCM are supported";
    default:
        return "can't be used";
    }
}

LSoundSink LWaveFile::OpenSinkPCM(const char* path, int rate, std::uint8_t channels, std::uint16_t bits,
                                  int startSample) {
    if (bits <= 8)
        return LSoundSink::Make<LSNKPCMFile<LSFU8>>(path, rate, channels, startSample);
    if (bits <= 16)
        return LSoundSink::Make<LSNKPCMFile<LSFLE16>>(path, rate, channels, startSample);
    return {};
}

LSoundSink LWaveFile::OpenSinkStream(LReadWriteFile&& opened, int rate, std::uint8_t channels,
                                     std::uint16_t bits, int frames) {
    if (bits <= 8)
        return LSoundSink::Make<LSNKPCMFile<LSFU8>>(std::move(opened), rate, channels, frames);
    if (bits <= 16)
        return LSoundSink::Make<LSNKPCMFile<LSFLE16>>(std::move(opened), rate, channels, frames);
    return {};
}
