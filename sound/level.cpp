#include "sound/level.h"

#include "sound/fixed_point.h"
#include "sound/kernels/kernels.h"

#include <cmath>
#include <cstddef>
#include <limits>

/// The factors of all 256 levels, worked out by the compiler: when the program runs, that would take longer
/// than to render a short tone.
class LDB::LDBTablesClass {
public:
    constexpr LDBTablesClass() {
        Fill(amplitude, 1.12201845430196343559103894647790574L); // 10^(1/20)
        Fill(power, 1.25892541179416721042395410639580061L);     // 10^(1/10)
    }

    constexpr int GetAmplitude(int db) const { return amplitude[Index(db)]; }
    constexpr int GetPower(int db) const { return power[Index(db)]; }

private:
    using Table = std::array<int, 256>;

    static constexpr std::size_t Index(int db) { return static_cast<std::size_t>(db + 128); }

    static constexpr void Fill(Table& table, long double step) {
        long double louder = 1, softer = 1;
        for (int db = 0; db <= 127; ++db, louder *= step, softer /= step) {
            table[Index(db)] = ToFixed824(louder);
            table[Index(-db)] = -db > Silence ? ToFixed824(softer) : 0;
        }
    }

    static constexpr int ToFixed824(long double factor) {
        const long double value = factor * 16777216 + 0.5L;
        constexpr int top = std::numeric_limits<int>::max();
        return value < static_cast<long double>(top) ? static_cast<int>(value) : top;
    }

    Table amplitude{}, power{};
};

namespace {

constexpr LDB::LDBTablesClass Tables;

} // namespace

int LDB::GetAmplitude() const {
    return Tables.GetAmplitude(db);
}

int LDB::GetPower() const {
    return Tables.GetPower(db);
}

int GetBufferPeak(const int* buffer, int frames, std::uint8_t channels) {
    return Kernels().getPeak(buffer, frames * channels);
}

int GetBufferPeakChan(std::uint8_t channel, const int* buffer, int frames, std::uint8_t channels) {
    if (channels == 1)
        return GetBufferPeak(buffer, frames, 1);
    int largest = 0, smallest = 0;
    for (std::ptrdiff_t i = 0; i < frames; ++i) {
        largest = std::max(largest, buffer[i * channels + channel]);
        smallest = std::min(smallest, buffer[i * channels + channel]);
    }
    return std::max(largest, WrapSubtract(0, smallest));
}

namespace {

std::uint32_t GetMeanSquare(const int* samples, int count, int stride) {
    std::uint32_t high = 0, low = 0;
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const auto scaled = static_cast<std::uint32_t>(samples[i * stride] >> 5);
        const std::uint32_t square = scaled * scaled;
        high += square >> 13;
        low += square & 8191;
    }
    const std::uint32_t total = (low >> 13) + high;
    const auto n = static_cast<std::uint32_t>(count);
    return total / n * 8192 + total % n * 8192 / n;
}

} // namespace

std::uint32_t GetBufferMeanSquare(const int* buffer, int frames, std::uint8_t channels) {
    const int count = frames * channels;
    return count < 1 ? 0 : GetMeanSquare(buffer, count, 1);
}

std::uint32_t GetBufferMeanSquareChan(std::uint8_t channel, const int* buffer, int frames,
                                      std::uint8_t channels) {
    const int first = channels == 1 ? 0 : channel;
    return frames < 1 ? 0 : GetMeanSquare(buffer + first, frames, channels);
}

LDB GetBufferRMSDBChan(std::uint8_t channel, const int* buffer, int frames, std::uint8_t channels) {
    const std::uint32_t meanSquare = GetBufferMeanSquareChan(channel, buffer, frames, channels);
    if (meanSquare == 0)
        return LDB(LDB::Silence);
    const double level = 10.0 * std::log10(meanSquare / 8388626.0);
    const double rounded = std::trunc(meanSquare > 8388625 ? level + 0.5 : level - 0.5);
    return LDB(static_cast<std::int8_t>(std::clamp(rounded, -127.0, 127.0)));
}
