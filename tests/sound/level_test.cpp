#include "sound/level.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

namespace {

TEST(Level, FactorsAreTheRoundedPowersOfTen) {
    struct {
        std::int8_t db;
        int amplitude, power;
    } const cases[] = {{0, 16777216, 16777216},
                       {-6, 8408526, 4214246},
                       {-20, 1677722, 167772},
                       {6, 33474947, 66791300},
                       {20, 167772160, 1677721600},
                       {21, 188243460, 2112126356},
                       {22, 211212636, INT_MAX},
                       {40, 1677721600, INT_MAX},
                       {41, 1882434596, INT_MAX},
                       {42, 2112126356, INT_MAX},
                       {43, INT_MAX, INT_MAX},
                       {127, INT_MAX, INT_MAX},
                       {-126, 8, 0},
                       {-127, 0, 0},
                       {-128, 0, 0}};
    for (const auto& each : cases) {
        EXPECT_EQ(LDB(each.db).GetAmplitude(), each.amplitude) << int{each.db};
        EXPECT_EQ(LDB(each.db).GetPower(), each.power) << int{each.db};
    }
}

TEST(Level, MeasuresABuffer) {
    struct {
        int sample, frames, peak;
        std::uint32_t meanSquare;
        int db;
    } const cases[] = {
        {0, 100, 0, 0, -127},
        {524272, 100, 524272, 268402688, 15}, // 16383^2 is one more: the low sum is dropped
        {92682, 8192, 92682, 8386816, 0},
        {-5, 3, 5, 0, -127}, // (-1)^2, dropped as well
        {INT_MIN + 1, 1, INT_MAX, 0, -127},
        {524272, 0, 0, 0, -127},
    };
    for (const auto& each : cases) {
        const std::vector<int> buffer(static_cast<std::size_t>(each.frames) + 1, each.sample);
        EXPECT_EQ(GetBufferPeak(buffer.data(), each.frames, 1), each.peak) << each.sample;
        EXPECT_EQ(GetBufferMeanSquare(buffer.data(), each.frames, 1), each.meanSquare) << each.sample;
        EXPECT_EQ(GetBufferMeanSquareChan(0, buffer.data(), each.frames, 1), each.meanSquare) << each.sample;
        EXPECT_EQ(GetBufferRMSDBChan(0, buffer.data(), each.frames, 1).GetDecibels(), each.db) << each.sample;
    }
}

} // namespace
