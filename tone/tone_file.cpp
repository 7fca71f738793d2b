#include "sys/file.h"
#include "tone/tone_data.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <type_traits>

// The file is the record's image in memory, byte for byte, in little-endian order.
static_assert(std::is_trivially_copyable_v<SonvireFile> && sizeof(SonvireData) == sizeof(SonvireFile));
static_assert(offsetof(SonvireFile, waveform) == 2 && offsetof(SonvireFile, numTones) == 3);
static_assert(offsetof(SonvireFile, durationMs) == 4 && offsetof(SonvireFile, startLeftHz) == 8);
static_assert(offsetof(SonvireFile, endLeftHz) == 136 && offsetof(SonvireFile, startRightHz) == 264);
static_assert(offsetof(SonvireFile, endRightHz) == 392 && offsetof(SonvireFile, amplitudeDb) == 520);
static_assert(offsetof(SonvireFile, repeat) == 536 && offsetof(SonvireFile, listPath) == 537);
static_assert(offsetof(SonvireFile, listPath) + SonvireFile::ListPathBytes == SonvireFile::FileBytes);

namespace {

template <class Number, class Bits>
void ReverseBytes(Number& number, Bits (*reverse)(Bits)) {
    number = std::bit_cast<Number>(reverse(std::bit_cast<Bits>(number)));
}

[[maybe_unused]] void ReverseByteOrder(SonvireFile& record) {
    ReverseBytes(
        record.flags, +[](std::uint16_t bits) { return __builtin_bswap16(bits); });
    ReverseBytes(
        record.durationMs, +[](std::uint32_t bits) { return __builtin_bswap32(bits); });
    for (auto* frequencies :
         {&record.startLeftHz, &record.endLeftHz, &record.startRightHz, &record.endRightHz})
        for (double& hz : *frequencies)
            ReverseBytes(
                hz, +[](std::uint64_t bits) { return __builtin_bswap64(bits); });
}

} // namespace

bool SonvireFile::operator==(const SonvireFile& other) const {
    return std::memcmp(this, &other, FileBytes) == 0;
}

void SonvireFile::LittleEndianToNative() {
    if constexpr (std::endian::native == std::endian::big)
        ReverseByteOrder(*this);
}

void SonvireFile::NativeToLittleEndian() {
    LittleEndianToNative(); // reversing works both ways
}

LFailure SonvireData::ReadFromFile(const char* path) {
    const LFailure failure = LFile::LoadFile(path, this, FileBytes);
    if (!failure) {
        LittleEndianToNative();
        return {};
    }
    *this = SonvireData();
    if (failure.GetError() != 0)
        return failure;
    return "is not a whole tone: a tone data file has " + std::to_string(FileBytes) + " bytes";
}

LFailure SonvireData::WriteToFile(const char* path) const {
    SonvireData image = *this;
    image.NativeToLittleEndian();
    return LFile::SaveFile(path, &image, FileBytes);
}
