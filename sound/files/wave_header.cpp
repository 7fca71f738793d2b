#include "sound/files/wave_header.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <optional>
#include <vector>

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

bool IsInRange(const LWaveFileFormat& format) {
    return format.channels >= 1 && format.channels <= MaxChannels && format.sampleRate >= 1 &&
           format.sampleRate <= std::uint32_t{LWaveFileFormat::MaxRate};
}

bool IsSupported(const LWaveFileFormat& format) {
    const bool pcm = format.tag == LWaveFileFormat::TagPCM && format.bitsPerSample <= 16;
    return pcm || format.tag == LWaveFileFormat::TagIMAADPCM;
}

LWaveHeader ReadFromStart(LReadFile& file) {
    const LFileState state = file.GetState();
    if (!FindWave(file))
        return {};
    const std::optional<LWaveFileFormat> format = ReadFormat(file);
    if (!format)
        return {};
    const std::optional<std::uint32_t> dataBytes = FindChunk(file, "data", true);
    if (!dataBytes || !IsInRange(*format))
        return {};
    if (!IsSupported(*format))
        return {.status = SoundUnsupportedFormat};
    return {.status = SoundUsable,
            .state = state,
            .format = *format,
            .dataBytes = *dataBytes,
            .dataStart = file.GetOffset(),
            .isSettled = state.GetSecondsUnchanged() > 1};
}

/// The one that was read last stands at the end.
class Remembered {
public:
    std::optional<LWaveHeader> Find(const LFileState& state) {
        const std::scoped_lock lock(mutex);
        const auto found = std::find_if(headers.begin(), headers.end(),
                                        [&state](const LWaveHeader& each) { return each.IsOf(state); });
        return found == headers.end() ? std::nullopt : std::optional(*found);
    }
    void Add(const LWaveHeader& header) {
        const std::scoped_lock lock(mutex);
        if (headers.size() == Most)
            headers.erase(headers.begin());
        headers.push_back(header);
    }

private:
    static constexpr std::size_t Most = 64;

    std::mutex mutex;
    std::vector<LWaveHeader> headers;
};

} // namespace

LWaveHeader ReadWaveHeader(LReadFile& file) {
    static Remembered remembered;
    if (!file.IsOpen())
        return {.status = SoundCannotOpen};
    const std::optional<LWaveHeader> known = remembered.Find(file.GetState());
    if (known && file.SeekTo(known->dataStart))
        return *known;
    const LWaveHeader read = ReadFromStart(file);
    if (read.isSettled)
        remembered.Add(read);
    return read;
}
