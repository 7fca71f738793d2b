#include "tone/note_name.h"
#include "tone/typed_value.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Parser = std::optional<double> (*)(const std::string&);
using Values = std::vector<std::pair<const char*, double>>;

TEST(TypedValue, IsReadAsPeopleWriteIt) {
    // A C#5 is 554.3652620, times 2^(3/1200); a B3-50 lies halfway down to the 233.08 of Bb3.
    const Values frequencies = {{"440", 440},         {"440,5", 440.5},      {" 1 000 Hz ", 1000},
                                {"1.5k", 1500},       {"+1.5KHZ", 1500},     {"-3e2", -300},
                                {"a4", 440},          {"C4", 261.6255653},   {"C#5 +3 ct", 555.3268},
                                {"Bb3", 233.0818808}, {"b3-50", 239.911701}, {"c-1", 8.1757989}};
    const Values durations = {{"500", 500},           {"0.5 s", 500},      {"2min", 120'000},
                              {"1h", 3'600'000},      {"1:30", 90'000},    {"0:00.25", 250},
                              {"1:00:01", 3'601'000}, {"90:00", 5'400'000}};
    const Values levels = {{"-3 dB", -3}, {"-0,5", -0.5}, {"\u22123\u00A0dB", -3}, {"-1\u202F2", -12}};
    for (const auto& [parse, values] : {std::pair<Parser, Values>{ParseFrequency, frequencies},
                                        {ParseDuration, durations},
                                        {ParseLevel, levels}})
        for (const auto& [text, value] : values)
            EXPECT_NEAR(parse(text).value_or(0), value, std::fabs(value) * 1e-6) << text;
}

TEST(TypedValue, WhatMayMeanTwoThingsOrNothingIsRefused) {
    const std::pair<Parser, std::vector<const char*>> cases[] = {
        {ParseFrequency,
         {"1,000", "1.000,5", "H4", "A", "A4 3", "A99", "nan", "inf", "1e999", "0x10", "+-5", "5 s", ""}},
        {ParseDuration, {"1:60", "1.5:00", "1:", "1:2:3:4", "-1:30", "5 Hz"}},
        {ParseLevel, {"3 ms"}}};
    for (const auto& [parse, texts] : cases)
        for (const char* text : texts)
            EXPECT_FALSE(parse(text)) << text;
}

/// Worked out with numpy as 1200 * log2(hz / 440), counted from the A.
TEST(TypedValue, AFrequencyIsNamedByItsNote) {
    const std::pair<double, const char*> cases[] = {
        {440, "A4"},        {1000, "B5 +21 ct"}, {1500, "F#6 +23 ct"},  {261.6256, "C4"}, {253, "B3 +42 ct"},
        {8.1757989, "C-1"}, {20, "D#0 +49 ct"},  {20000, "D#10 +8 ct"}, {0, ""},          {-440, ""},
        {NAN, ""},          {INFINITY, ""}};
    for (const auto& [hz, note] : cases)
        EXPECT_EQ(DescribeNote(hz), note) << hz;
}

} // namespace
