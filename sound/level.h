#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

/// A level in whole decibels. -127 (and -128) stands for silence; -126..127 are levels.
class LDB {
public:
    static constexpr std::int8_t Silence = -127;

    constexpr LDB() = default;
    constexpr explicit LDB(std::int8_t decibels) : db(decibels) {}

    constexpr std::int8_t GetDecibels() const { return db; }

    /// 10^(dB/20) in 8.24 fixed point, rounded; 0 for silence, 2147483647 from +43 dB on.
    int GetAmplitude() const;
    /// 10^(dB/10) in 8.24 fixed point, rounded; 0 for silence, 2147483647 from +22 dB on.
    int GetPower() const;

    constexpr bool operator==(const LDB&) const = default;

    class LDBTablesClass;

private:
    std::int8_t db = Silence;
};

/// A level per channel. Channels beyond `MaxChannels` are left out.
class LDBMC {
public:
    static constexpr int MaxChannels = 8;

    LDBMC() = default;
    explicit LDBMC(std::uint8_t channelCount)
        : channels(static_cast<std::uint8_t>(std::min<int>(channelCount, MaxChannels))) {}

    std::uint8_t GetChannels() const { return channels; }
    LDB& operator[](int channel) { return levels[static_cast<std::size_t>(channel)]; }
    LDB operator[](int channel) const { return levels[static_cast<std::size_t>(channel)]; }

private:
    std::uint8_t channels = 0;
    std::array<LDB, MaxChannels> levels;
};

/// Measurements of a buffer of interleaved internal samples.
/// Thread: any. Blocks: no. Allocates: no.

/// The largest magnitude among all samples; 0 for an empty buffer.
int GetBufferPeak(const int* buffer, int frames, std::uint8_t channels);

/// The same for one channel alone (0 is the first).
int GetBufferPeakChan(std::uint8_t channel, const int* buffer, int frames, std::uint8_t channels);

/// The mean of (sample >> 5)^2 over all samples; 0 for an empty buffer.
/// Kept quirk: it is made of 32-bit sums whose lowest bits are dropped.
std::uint32_t GetBufferMeanSquare(const int* buffer, int frames, std::uint8_t channels);

/// The same for one channel alone (0 is the first).
std::uint32_t GetBufferMeanSquareChan(std::uint8_t channel, const int* buffer, int frames,
                                      std::uint8_t channels);

/// That mean square as a level: 0 dB is 8388626, which a sine of amplitude 131070 reaches.
LDB GetBufferRMSDBChan(std::uint8_t channel, const int* buffer, int frames, std::uint8_t channels);
