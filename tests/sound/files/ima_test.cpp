#include "sound/files/ima_source.h"
#include "support/array_source.h"
#include "support/reference.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

namespace {

LSoundSource Open(const std::string& path, std::uint32_t dataBytes, unsigned int align) {
    LSharedReadFile file(path.c_str());
    return LIMAWaveOpenSource(file, dataBytes, 8000, 1, align);
}

TEST(ImaAdpcm, DecodesByTheStandardSteps) {
    const auto decode = [](LIMAADPCM decoder, std::uint8_t code, int sample, int stepIndex) {
        EXPECT_EQ(decoder.DecodeSample(code), sample);
        EXPECT_EQ(decoder.stepIndex, stepIndex);
        return decoder;
    };
    // Step 7: 7/8 + 7 + 7/2 + 7/4 = 0 + 7 + 3 + 1; the index goes to 8 (step 16): -(2 + 4) brings 5, the
    // index 7.
    decode(decode({}, 7, 11 * 16, 8), 9, 5 * 16, 7);
    decode({}, 0, 0, 0);
    EXPECT_EQ(decode({.predictor = 32000, .stepIndex = 88}, 7, 524272, 88).predictor, 32767);
    decode({.predictor = -32000, .stepIndex = 88}, 15, -524288, 88);
}

TEST(ImaSource, DecodesFromEveryStepAsSoxDoes) {
    const std::vector<int> codes = ReferenceNoise(89 * 4, 127);
    std::string blocks;
    for (int i = 0; i < 89; ++i) {
        const int first = (i - 44) * 300;
        for (const int byte : {first, first >> 8, i, 0})
            blocks += static_cast<char>(byte);
        for (int code = 4 * i; code < 4 * i + 4; ++code)
            blocks += static_cast<char>(codes[static_cast<std::size_t>(code)]);
    }
    const TempDir dir;
    WriteBytes(dir / "data", blocks);
    EXPECT_EQ(HashSamples(ReadFrames(*Open(dir / "data", 89 * 8, 8), 89 * 9)), 0xCEC1F53Bu);
}

TEST(ImaSource, CountsTheSamplesOfWholeAndPartialBlocks) {
    const TempDir dir;
    WriteBytes(dir / "data", std::string(1000, '\0'));
    const std::tuple<std::uint32_t, unsigned int, int> cases[] = {
        {1000, 256, 1972},       {768, 256, 1515},        {771, 256, 1515},     {772, 256, 1516}, {8, 0, 2},
        {0xFFFFFFFF, 256, 1972}, {0xFFFFFFD9, 256, 1972}, {40000, 40000, 79986}}; // 65529 + 2 * 7228 + 1
    for (const auto& [bytes, align, samples] : cases)
        EXPECT_EQ(Open(dir / "data", bytes, align)->GetEndSample(), samples) << bytes;
    LSharedReadFile file((dir / "data").c_str());
    EXPECT_EQ(LIMAWaveOpenSource(file, 1000, 8000, 2, 256)->status, SoundNothing);
}

/// Two blocks of 12 bytes (17 samples) and the start of a third.
class ImaBlocks : public ::testing::Test {
protected:
    ImaBlocks() {
        std::string bytes = std::string("\xE8\x03\x0A\x00", 4) + "\x12\x34\x56\x78\x9A\xBC\xDE\xF0";
        bytes += std::string("\x18\xFC\xFF\x00", 4) + "\x77\x77\x77\x77\x07\x07\x07\x07";
        bytes += std::string("\x01\x00\x00\x00\x77", 5);
        WriteBytes(dir / "data", bytes);
    }
    const TempDir dir;
};

TEST_F(ImaBlocks, EachBlockStartsWithItsHeadersSample) {
    const LSoundSource source = Open(dir / "data", 29, 12);
    EXPECT_EQ(source->GetEndSample(), 17 + 17 + 3);
    const std::vector<int> all = ReadFrames(*source, 40);
    EXPECT_EQ(all[0], 1000 * 16);
    EXPECT_EQ(all[17], -1000 * 16);
    EXPECT_EQ(all[34], 1 * 16);
    EXPECT_EQ(all[35], 12 * 16) << "step 7 again: a block starts its own decoder";
    EXPECT_EQ(all[37], 0) << "behind the end";
    source->Seek(0);
    EXPECT_EQ(ReadInPieces(*source, 40), all) << "an odd count leaves half a byte pending";
    ExpectSeeks(*source, all, {1, 16, 17, 18, 20, 34, 36, 37});
    source->Seek(-2);
    EXPECT_EQ(ReadFrames(*source, 3), (std::vector<int>{0, 0, 16000}));
    source->Seek(38);
    EXPECT_EQ(ReadFrames(*source, 1), std::vector<int>{0});
    source->Unload();
    source->Seek(0);
    EXPECT_EQ(ReadFrames(*source, 40), all);
}

TEST_F(ImaBlocks, ABlockThatTheFileCutsShortIsSilentFromTheCutOn) {
    const std::vector<int> all = ReadFrames(*Open(dir / "data", 29, 12), 37);
    WriteBytes(dir / "cut", ReadBytes(dir / "data").substr(0, 18));
    const std::vector<int> cut = ReadFrames(*Open(dir / "cut", 29, 12), 37);
    std::vector<int> expected(all.begin(), all.begin() + 22); // 17 + the header's and two bytes' samples
    expected.resize(37);
    EXPECT_EQ(cut, expected);
}

TEST(ImaSource, ASeekInAVeryLongBlockLandsShort) {
    const TempDir dir;
    WriteBytes(dir / "data", std::string(20000, '\x11'));
    const LSoundSource source = Open(dir / "data", 20000, 10000);
    source->Seek(15000);
    EXPECT_EQ(source->GetPositionSample(), 8192);
}

} // namespace
