#include "sound/files/wave_file.h"

#include "sound/files/ima_source.h"
#include "sound/files/pcm_sink.h"
#include "sound/files/pcm_source.h"
#include "sound/files/wave_format.h"

#include <array>
#include <cstring>
#include <optional>

namespace {

constexpr std::uint32_t MinFormatBytes = 16, MaxFormatBytes = 8192;
constexpr std::uint16_t MaxChannels = 255;
/// No file of use has as many chunks; a crafted one could otherwise keep the walk busy for hours.
constexpr int MaxChunks = 65536;

struct ChunkHeader {
    char tag[4];
    std::uint32_t size; ///< as stored

    bool Is(const char (&name)[5]) const { return std::memcmp(tag, name, 4) == 0; }
};

/// A chunk's body is padded to an even size. Negative where the size makes no sense.
std::int32_t GetPaddedSize(std::uint32_t size) {
    return static_cast<std::int32_t>((size + 1) & ~1u);
}

/// Finds "RIFF" ... "WAVE", past units of other kinds.
/// Kept quirk: their sizes are read in the host's byte order.
bool FindWave(LReadFile& file) {
    for (int chunk = 0; chunk < MaxChunks; ++chunk) {
        struct {
            ChunkHeader header;
            char form[4];
        } unit;
        if (file.Read(&unit, sizeof unit) != sizeof unit)
            return false;
        if (unit.header.Is("RIFF") && std::memcmp(unit.form, "WAVE", 4) == 0)
            return true;
        const std::int32_t padded = GetPaddedSize(unit.header.size);
        if (padded <= 4 || !file.SkipForward(padded - 4))
            return false;
    }
    return false;
}

/// Walks to the chunk named `name` and returns its size. `convertSize` tells whether the chunks before it are
/// skipped by their little-endian size.
/// Kept quirk: else it is by what the host's byte order makes of it.
std::optional<std::uint32_t> FindChunk(LReadFile& file, const char (&name)[5], bool convertSize) {
    for (int chunk = 0; chunk < MaxChunks; ++chunk) {
        ChunkHeader header;
        if (file.Read(&header, sizeof header) != sizeof header)
            return {};
        if (header.Is(name))
            return LEndianReverse(header.size);
        const std::int32_t padded = GetPaddedSize(convertSize ? LEndianReverse(header.size) : header.size);
        if (padded < 0 || !file.SkipForward(padded))
            return {};
    }
    return {};
}

/// Reads the format block.
/// Kept quirk: the pad byte of one with an odd size is not skipped.
std::optional<LWaveFileFormat> ReadFormat(LReadFile& file) {
    const std::optional<std::uint32_t> size = FindChunk(file, "fmt ", false);
    if (!size || *size < MinFormatBytes || *size > MaxFormatBytes)
        return {};
    std::array<char, MaxFormatBytes> body;
    if (file.Read(body.data(), *size) != *size)
        return {};
    const auto field = [&body]<class Number>(std::size_t offset, Number) {
        Number stored;
        std::memcpy(&stored, &body[offset], sizeof stored);
        return LEndianReverse(stored);
    };
    LWaveFileFormat format;
    format.tag = field(0, std::uint16_t{});
    format.channels = field(2, std::uint16_t{});
    format.sampleRate = field(4, std::uint32_t{});
    format.blockAlign = field(12, std::uint16_t{});
    format.bitsPerSample = field(14, std::uint16_t{});
    return format;
}

struct WaveLayout {
    LWaveFileFormat format;
    std::uint32_t dataBytes;
};

/// Leaves the file at its first sample; nothing where its structure is damaged.
std::optional<WaveLayout> FindSamples(LReadFile& file) {
    if (!FindWave(file))
        return {};
    const std::optional<LWaveFileFormat> format = ReadFormat(file);
    if (!format)
        return {};
    const std::optional<std::uint32_t> dataBytes = FindChunk(file, "data", true);
    if (!dataBytes || format->channels < 1 || format->channels > MaxChannels || format->sampleRate < 1 ||
        format->sampleRate > LWaveFile::MaxRate)
        return {};
    return WaveLayout{*format, *dataBytes};
}

LSoundSource Failed(LSoundStatus code) {
    return LSoundSource::Make<LSoundSourceError>(code);
}

LSoundSource OpenPCM(LReadFile& file, const LWaveFileFormat& format, std::uint32_t dataBytes) {
    const int rate = static_cast<int>(format.sampleRate);
    const auto channels = static_cast<std::uint8_t>(format.channels);
    if (format.bitsPerSample > 16)
        return Failed(SoundUnsupportedFormat);
    if (format.bitsPerSample > 8)
        return LSoundSource::Make<LSRCPCMFile<LSFLE16>>(std::move(file), rate, channels, dataBytes);
    return LSoundSource::Make<LSRCPCMFile<LSFU8>>(std::move(file), rate, channels, dataBytes);
}

} // namespace

LSoundSource LWaveFile::OpenSource(const char* path) {
    LSharedReadFile file(path);
    if (!file.IsOpen())
        return Failed(SoundCannotOpen);
    const std::optional<WaveLayout> wave = FindSamples(file);
    if (!wave)
        return Failed(SoundInvalidFormat);
    const LWaveFileFormat& format = wave->format;
    if (format.tag == LWaveFileFormat::TagPCM)
        return OpenPCM(file, format, wave->dataBytes);
    if (format.tag == LWaveFileFormat::TagIMAADPCM)
        return LIMAWaveOpenSource(file, wave->dataBytes, static_cast<int>(format.sampleRate),
                                  static_cast<std::uint8_t>(format.channels), format.blockAlign);
    return Failed(SoundUnsupportedFormat);
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

bool LWaveFile::IsCutShort(const char* path) {
    LSharedReadFile file(path);
    const std::optional<WaveLayout> wave = FindSamples(file);
    return wave && IsDataLengthKnown(wave->dataBytes) && file.GetOffset() + wave->dataBytes > file.GetSize();
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
