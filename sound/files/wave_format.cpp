#include "sound/files/wave_format.h"

#include "sys/file.h"

#include <array>
#include <bit>
#include <cstring>

std::uint16_t LEndianReverse(std::uint16_t value) {
    return std::endian::native == std::endian::little ? value : __builtin_bswap16(value);
}

std::uint32_t LEndianReverse(std::uint32_t value) {
    return std::endian::native == std::endian::little ? value : __builtin_bswap32(value);
}

namespace {

/// Lays out fields one after another.
class HeaderBytes {
public:
    HeaderBytes& Tag(const char (&text)[5]) { return Append(text, 4); }

    template <class Number>
    HeaderBytes& Field(Number value) {
        const Number stored = LEndianReverse(value);
        return Append(&stored, sizeof stored);
    }

    LFailure WriteTo(LOpenFile& file) const { return file.Write(bytes.data(), used); }

private:
    HeaderBytes& Append(const void* data, std::size_t size) {
        std::memcpy(bytes.data() + used, data, size);
        used += size;
        return *this;
    }

    std::array<char, LWaveFileFormat::HeaderBytes> bytes{};
    std::size_t used = 0;
};

} // namespace

LFailure LWaveFileFormat::WritePCMHeader(LOpenFile& file, std::uint32_t dataBytes) const {
    const std::uint16_t written = channels & 0xFF;
    const auto frameBytes = static_cast<std::uint16_t>(bitsPerSample / 8 * written);
    ::HeaderBytes header;
    header.Tag("RIFF").Field(dataBytes + 38).Tag("WAVE");
    header.Tag("fmt ").Field(std::uint32_t{18});
    header.Field(tag).Field(written).Field(sampleRate).Field(sampleRate * frameBytes).Field(frameBytes);
    header.Field(bitsPerSample).Field(std::uint16_t{0}); // no extra bytes
    header.Tag("data").Field(dataBytes);
    return header.WriteTo(file);
}
