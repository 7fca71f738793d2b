#include "support/temp_dir.h"
#include "tone/tone_data.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

TEST(ToneFile, IsTheRecordByteForByte) {
    const TempDir dir;
    const std::string path = dir / "tone.tdf";
    SonvireData tone;
    ASSERT_FALSE(tone.WriteToFile(path.c_str()));
    const std::string bytes = ReadBytes(path);
    EXPECT_EQ(bytes.size(), 797u);
    EXPECT_EQ(bytes.substr(0, 16), std::string("\0\0\0\1\xE8\3\0\0\0\0\0\0\0\x40\x8F\x40", 16));

    tone.flags = 0x1234;
    tone.waveform = 6;
    tone.numTones = 3;
    tone.durationMs = 0x89ABCDEF;
    tone.startLeftHz[15] = 1;
    tone.endLeftHz[0] = 2;
    tone.startRightHz[0] = 4;
    tone.endRightHz[15] = 8;
    tone.amplitudeDb[0] = -1;
    tone.repeat = 1;
    std::memcpy(tone.listPath, "a\0b", 3);
    tone.listPath[259] = 'z';
    ASSERT_FALSE(tone.WriteToFile(path.c_str()));
    const std::string image = ReadBytes(path);
    EXPECT_EQ(image.substr(0, 8), "\x34\x12\6\3\xEF\xCD\xAB\x89");
    const std::pair<std::size_t, std::string> fields[] = {
        {8 + 127, "\x3F"}, {136 + 7, "\x40"}, {264 + 6, "\x10\x40"},         {520 - 2, "\x20\x40"},
        {520, "\xFF"},     {536, "\1"},       {537, std::string("a\0b", 3)}, {796, "z"}};
    for (const auto& [offset, bytes] : fields)
        EXPECT_EQ(image.substr(offset, bytes.size()), bytes) << offset;

    SonvireData read;
    ASSERT_FALSE(read.ReadFromFile(path.c_str()));
    EXPECT_EQ(std::memcmp(&read, &tone, SonvireData::FileBytes), 0);
    EXPECT_EQ(read.GetListPath(), "a");
}

TEST(ToneFile, WhatIsNotAWholeRecordReadsAsTheDefault) {
    const TempDir dir;
    const std::string path = dir / "tone.tdf";
    const SonvireData fresh;
    SonvireData tone;
    for (const std::size_t size : {0u, 1u, 796u}) {
        WriteBytes(path, std::string(size, 'x'));
        tone.waveform = 3;
        EXPECT_TRUE(tone.ReadFromFile(path.c_str())) << size;
        EXPECT_EQ(std::memcmp(&tone, &fresh, SonvireData::FileBytes), 0) << size;
    }
    EXPECT_TRUE(tone.ReadFromFile((dir / "missing").c_str()));
    EXPECT_TRUE(tone.ReadFromFile((dir / "").c_str()));
    WriteBytes(path, std::string(900, '\1'));
    EXPECT_FALSE(tone.ReadFromFile(path.c_str())) << "what follows the record is not looked at";
    EXPECT_EQ(tone.flags, 0x0101);
}

TEST(ToneFile, AFileInAnotherProgramsHandsIsLeftAlone) {
    const TempDir dir;
    const std::string path = dir / "tone.tdf";
    WriteBytes(path, "precious");
    const int other = open(path.c_str(), O_RDWR);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    SonvireData tone;
    EXPECT_TRUE(tone.WriteToFile(path.c_str()));
    EXPECT_TRUE(tone.ReadFromFile(path.c_str()));
    EXPECT_EQ(ReadBytes(path), "precious");
    close(other);
    EXPECT_FALSE(tone.WriteToFile(path.c_str()));
    EXPECT_EQ(ReadBytes(path).size(), 797u);
    EXPECT_TRUE(tone.WriteToFile("/dev/full"));
    EXPECT_TRUE(tone.WriteToFile((dir / "no/folder").c_str()));
}

} // namespace
