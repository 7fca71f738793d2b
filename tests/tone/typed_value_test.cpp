#include "tone/typed_value.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double None = -12345;

TEST(TypedValue, IsReadAsPeopleWriteIt) {
    struct {
        std::optional<double> (*parse)(const std::string&);
        const char* text;
        double value;
    } const cases[] = {
        {ParseFrequency, "440", 440},
        {ParseFrequency, "440,5", 440.5},
        {ParseFrequency, " 1 000 Hz ", 1000},
        {ParseFrequency, "1.5k", 1500},
        {ParseFrequency, "+1.5KHZ", 1500},
        {ParseFrequency, "-3e2", -300},
        {ParseFrequency, "a4", 440},
        {ParseFrequency, "C4", 261.6255653},
        {ParseFrequency, "C#5 +3 ct", 555.3268}, // 554.3652620 * 2^(3/1200)
        {ParseFrequency, "Bb3", 233.0818808},
        {ParseFrequency, "b3-50", 239.911701}, // halfway down to 233.08
        {ParseFrequency, "c-1", 8.1757989},
        {ParseFrequency, "1,000", None}, // 1 or 1000
        {ParseFrequency, "1.000,5", None},
        {ParseFrequency, "H4", None},
        {ParseFrequency, "A", None},
        {ParseFrequency, "A4 3", None},
        {ParseFrequency, "A99", None},
        {ParseFrequency, "nan", None},
        {ParseFrequency, "inf", None},
        {ParseFrequency, "1e999", None},
        {ParseFrequency, "0x10", None},
        {ParseFrequency, "+-5", None},
        {ParseFrequency, "5 s", None},
        {ParseFrequency, "", None},
        {ParseDuration, "500", 500},
        {ParseDuration, "0.5 s", 500},
        {ParseDuration, "2min", 120'000},
        {ParseDuration, "1h", 3'600'000},
        {ParseDuration, "1:30", 90'000},
        {ParseDuration, "0:00.25", 250},
        {ParseDuration, "1:00:01", 3'601'000},
        {ParseDuration, "90:00", 5'400'000},
        {ParseDuration, "1:60", None},
        {ParseDuration, "1.5:00", None},
        {ParseDuration, "1:", None},
        {ParseDuration, "1:2:3:4", None},
        {ParseDuration, "-1:30", None},
        {ParseDuration, "5 Hz", None},
        {ParseLevel, "-3 dB", -3},
        {ParseLevel, "-0,5", -0.5},
        {ParseLevel, "3 ms", None},
    };
    for (const auto& each : cases)
        EXPECT_NEAR(each.parse(each.text).value_or(None), each.value, std::fabs(each.value) * 1e-6)
            << each.text;
}

} // namespace
