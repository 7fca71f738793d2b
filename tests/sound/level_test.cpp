#include "sound/level.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

namespace {

TEST(Level, FactorsAreTheRoundedPowersOfTen) {
    constexpr int cases[][3] = {{0, 16777216, 16777216},
                                {-6, 8408526, 4214246},
                                {-20, 1677722, 167772},
                                {6, 33474947, 66791300},
                                {-10, 5305422, 1677722},
                                {20, 167772160, 1677721600},
                                {22, 211212636, INT_MAX},
                                {40, 1677721600, INT_MAX},
                                {42, 2112126356, INT_MAX},
                                {43, INT_MAX, INT_MAX},
                                {127, INT_MAX, INT_MAX},
                                {-126, 8, 0},
                                {-127, 0, 0},
                                {-128, 0, 0}};
    for (const auto& [db, amplitude, power] : cases) {
        const LDB level(static_cast<std::int8_t>(db));
        EXPECT_EQ(level.GetAmplitude(), amplitude) << db;
        EXPECT_EQ(level.GetPower(), power) << db;
    }
}

TEST(Level, MeasuresABuffer) {
    // The sample and the frames; then the peak, the mean square and the level in dB.
    const std::tuple<int, int, int, std::uint32_t, int> cases[] = {
        {0, 100, 0, 0, -127},
        {524272, 100, 524272, 268402688, 15}, // 16383^2 is one more: the low sum is dropped
        {92682, 8192, 92682, 8386816, 0},
        {-5, 3, 5, 0, -127}, // (-1)^2, dropped as well
        {262144, 1, 262144, 67108864, 9},
        {98144, 8192, 98144, 9406489, 0},  // 0.4974 dB
        {98176, 8192, 98176, 9412624, 1},  // 0.5002 dB
        {87520, 8192, 87520, 7480225, 0},  // -0.4978 dB
        {87488, 8192, 87488, 7474756, -1}, // -0.5009 dB
        {INT_MIN + 1, 1, INT_MAX, 0, -127},
        {524272, 0, 0, 0, -127},
    };
    for (const auto& [sample, frames, peak, meanSquare, db] : cases) {
        std::vector<int> mono(static_cast<std::size_t>(frames), sample);
        mono.push_back(1 << 20); // which is no part of it
        EXPECT_EQ(GetBufferPeak(mono.data(), frames, 1), peak) << sample;
        EXPECT_EQ(GetBufferMeanSquare(mono.data(), frames, 1), meanSquare) << sample;
        EXPECT_EQ(GetBufferMeanSquareChan(1, mono.data(), frames, 1), meanSquare) << sample;
        std::vector<int> stereo(2 * mono.size());
        for (std::size_t i = 1; i < stereo.size(); i += 2)
            stereo[i] = sample;
        EXPECT_EQ(GetBufferPeak(stereo.data(), frames, 2), peak) << sample;
        EXPECT_EQ(GetBufferRMSDBChan(0, stereo.data(), frames, 2), LDB(-127)) << sample;
        EXPECT_EQ(GetBufferRMSDBChan(1, stereo.data(), frames, 2).GetDecibels(), db) << sample;
    }
    EXPECT_EQ(LDBMC(200).GetChannels(), 8);
}

} // namespace
