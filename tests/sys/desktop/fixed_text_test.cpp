#include "sys/desktop/fixed_text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

namespace {

TEST(FixedText, PutsNumbersTogether) {
    LFixedText text;
    text.Add("a").AddNumber(-12).Add(" ").AddNumber(7, 2).Add(" ").AddNumber(123, 2).Add(" ").AddHex(0x1f);
    EXPECT_EQ(text.View(), "a-12 07 123 0x1f");
    text.Clear();
    text.AddNumber(std::numeric_limits<std::int64_t>::min()).AddHex(~std::uint64_t{0});
    EXPECT_STREQ(text.CString(), "-92233720368547758080xffffffffffffffff");
}

TEST(FixedText, LeavesOutWhatDoesNotFit) {
    LFixedText text;
    for (int i = 0; i < 1000; ++i)
        text.Add("12345");
    EXPECT_EQ(text.View().size(), 4095U);
    EXPECT_EQ(std::strlen(text.CString()), 4095U);
    text.Clear();
    EXPECT_EQ(text.Add("b").View(), "b");
    EXPECT_STREQ(text.CString(), "b");
}

} // namespace
