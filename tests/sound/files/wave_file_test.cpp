#include "sound/files/wave_file.h"
#include "support/array_source.h"
#include "support/reference.h"
#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <thread>

namespace {

std::string Le(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> (8 * i));
    return text;
}

std::string Chunk(const std::string& tag, const std::string& body) {
    return tag + Le(static_cast<std::uint32_t>(body.size()), 4) + body;
}

/// A format chunk.
std::string Format(std::uint32_t tag, std::uint32_t channels, std::uint32_t rate, std::uint32_t bits,
                   std::uint32_t align = 0, const std::string& extra = "") {
    return Chunk("fmt ", Le(tag, 2) + Le(channels, 2) + Le(rate, 4) + Le(rate * align, 4) + Le(align, 2) +
                             Le(bits, 2) + extra);
}

std::string Wave(const std::string& chunks) {
    return "RIFF" + Le(0, 4) + "WAVE" + chunks;
}

const std::string Pcm16 = Format(1, 1, 8000, 16);
const std::string ThreeSamples = std::string("\x01\x00\x02\x00\xFF\xFF", 6);
const std::vector<int> ThreeRead = {16, 32, -16};

TEST(WaveFile, WritesA46ByteHeaderAndTheFramesAlone) {
    const TempDir dir;
    const std::tuple<std::uint8_t, std::uint16_t, std::vector<int>, std::string> cases[] = {
        {1, 16, {16, -16, 524272}, std::string("\x01\x00\xFF\xFF\xFF\x7F", 6)},
        {1, 8, {0, 4096, 524272}, std::string("\x80\x81\x00", 3)}, // odd, yet not padded
        {2, 16, {}, ""}};
    for (const auto& [channels, bits, samples, data] : cases) {
        const std::string path = dir / "out.wav";
        LSoundSink sink = LWaveFile::OpenSinkPCM(path.c_str(), 44100, channels, bits, 0);
        EXPECT_EQ(ReadBytes(path).substr(0, 8), "RIFF\xFF\xFF\xFF\xFF") << "provisional while it is written";
        sink->Write(samples.data(), static_cast<int>(samples.size()) / channels);
        EXPECT_EQ(sink->status, 0);
        sink.Close();
        const unsigned int align = channels * bits / 8u;
        const std::string format = Format(1, channels, 44100, bits, align, Le(0, 2));
        EXPECT_EQ(ReadBytes(path), Chunk("RIFF", "WAVE" + format + Chunk("data", data))) << bits;
    }
    EXPECT_EQ(LWaveFile::OpenSinkPCM((dir / "24.wav").c_str(), 44100, 1, 24, 0)->status, SinkUnusable);
    EXPECT_EQ(LWaveFile::OpenSinkPCM((dir / "no/such/folder.wav").c_str(), 44100, 1, 16, 0)->status,
              SinkUnusable);
    EXPECT_EQ(dir.CountFiles(), 1u);
}

TEST(WaveFile, WritingGoesOnBehindTheFramesThatAreKept) {
    const TempDir dir;
    const std::string path = dir / "out.wav";
    const int first[] = {16, 32, 48, 64}, second[] = {-16, -32}, last = 80;
    const std::tuple<const char*, int, int, std::vector<int>> cases[] = {
        {"the last frame is cut off again", 3, 4, {16, 32, 48, -16, 80}},
        {"beyond the end is ignored", 3, 6, {16, 32, 48, -16, -32, 80}},
        {"before the beginning is the beginning", 3, -1, {80}},
        {"one is kept", 1, 3, {16, -16, -32, 80}},
        {"none is kept", -1, 2, {-16, -32, 80}}};
    for (const auto& [name, start, seek, expected] : cases) {
        LWaveFile::OpenSinkPCM(path.c_str(), 8000, 1, 16, 0)->Write(first, 4);
        {
            const LSoundSink sink = LWaveFile::OpenSinkPCM(path.c_str(), 8000, 1, 16, start);
            sink->Write(second, 2);
            sink->Seek(seek);
            EXPECT_EQ(ReadBytes(path).size(), 46 + 2 * (expected.size() - 1)) << name;
            sink->Write(&last, 1);
        }
        const LSoundSource source = LWaveFile::OpenSource(path.c_str());
        EXPECT_EQ(ReadFrames(*source, source->GetEndSample()), expected) << name;
    }
    const std::size_t size = ReadBytes(path).size();
    EXPECT_EQ(LWaveFile::OpenSinkPCM(path.c_str(), 8000, 1, 16, 99)->status, 0);
    EXPECT_EQ(ReadBytes(path).size(), size) << "what it does not have is not made up";
    const std::vector<int> many = ReferenceNoise(40000, 32767); // more than is written or read in one go
    std::vector<int> stereo;
    for (const int sample : many)
        stereo.push_back(16 * sample);
    LWaveFile::OpenSinkPCM(path.c_str(), 8000, 2, 16, 0)->Write(stereo.data(), 20000);
    EXPECT_EQ(ReadFrames(*LWaveFile::OpenSource(path.c_str()), 20000), stereo);
}

TEST(WaveFile, AFullDiskIsRemembered) {
    const LSoundSink sink = LWaveFile::OpenSinkPCM("/dev/full", 8000, 1, 16, 0);
    EXPECT_EQ(sink->status, SinkFellShort);
    EXPECT_EQ(sink->failure.GetError(), ENOSPC);
}

TEST(WaveFile, AHeaderThatCanNotBeCompletedIsRemembered) {
    const TempDir dir;
    int pipeEnds[2];
    ASSERT_EQ(pipe(pipeEnds), 0);
    const int next = dup(pipeEnds[0]);
    close(next); // the number that the file gets
    const LSoundSink sink =
        LWaveFile::OpenSinkStream(LReadWriteFile::OpenUnlocked((dir / "out.wav").c_str()), 8000, 1, 16, 0);
    dup2(pipeEnds[1], next); // which can be written and closed, but not rewound
    sink->Finish();
    EXPECT_EQ(sink->status, SinkFellShort);
    EXPECT_EQ(sink->failure.GetError(), ESPIPE);
    for (const int end : pipeEnds)
        close(end);
}

TEST(WaveFile, ReadsWhatItCanAndSaysWhyNot) {
    const TempDir dir;
    const std::string data = Chunk("data", ThreeSamples);
    std::string many;
    for (int i = 0; i < 70000; ++i)
        many += Chunk("x   ", "");
    const std::tuple<const char*, std::string, int, int> cases[] = {
        {"plain", Wave(Pcm16 + data), 0, 3},
        {"an odd chunk in between", Wave(Pcm16 + Chunk("LIST", "abc") + Le(0, 1) + data), 0, 3},
        {"a chunk before the format", Wave(Chunk("bext", "12345678") + Pcm16 + data), 0, 3},
        {"a unit before RIFF", Chunk("junk", "12345678") + Wave(Pcm16 + data), 0, 3},
        {"an odd format chunk is not padded", Wave(Format(1, 1, 8000, 16, 0, "x") + data), 0, 3},
        {"the fastest rate", Wave(Format(1, 1, 196000, 16) + data), 0, 3},
        {"12 bits are stored as 16", Wave(Format(1, 1, 8000, 12) + data), 0, 3},
        {"0 bits are stored as 8", Wave(Format(1, 1, 8000, 0) + data), 0, 6},
        {"255 channels", Wave(Format(1, 255, 8000, 16) + data), 0, 0},
        {"too fast", Wave(Format(1, 1, 196001, 16) + data), 3, 0},
        {"no rate", Wave(Format(1, 1, 0, 16) + data), 3, 0},
        {"no channels", Wave(Format(1, 0, 8000, 16) + data), 3, 0},
        {"256 channels", Wave(Format(1, 256, 8000, 16) + data), 3, 0},
        {"24 bits", Wave(Format(1, 1, 8000, 24) + data), 5, 0},
        {"floating point", Wave(Format(3, 1, 8000, 16) + data), 5, 0},
        {"stereo IMA ADPCM", Wave(Format(17, 2, 8000, 4, 256) + data), 1, 0},
        {"a format chunk that is too small", Wave(Chunk("fmt ", "123456789012345") + data), 3, 0},
        {"a large format chunk", Wave(Format(1, 1, 8000, 16, 0, std::string(8176, ' ')) + data), 0, 3},
        {"a format chunk that is too large", Wave(Format(1, 1, 8000, 16, 0, std::string(8177, ' ')) + data),
         3, 0},
        {"no format chunk", Wave(data), 3, 0},
        {"no data chunk", Wave(Pcm16), 3, 0},
        {"a negative chunk size", Wave("junk" + Le(0x80000000, 4) + Pcm16 + data), 3, 0},
        {"a chunk size that wraps to nothing", Wave(Pcm16 + "junk" + Le(0xFFFFFFFF, 4) + data), 0, 3},
        {"empty", "", 3, 0},
        {"eleven bytes", "RIFF1234WAV", 3, 0},
        {"a unit too small to skip", "junk" + Le(4, 4) + Wave(Pcm16 + data), 3, 0},
        {"too many chunks", Wave(many + Pcm16 + data), 3, 0},
    };
    for (const auto& [name, bytes, status, end] : cases) {
        WriteBytes(dir / "in.wav", bytes);
        const LSoundSource source = LWaveFile::OpenSource((dir / "in.wav").c_str());
        EXPECT_EQ(source->status, status) << name;
        EXPECT_EQ(source->GetEndSample(), end) << name;
        if (status == 0 && end == 3) {
            EXPECT_EQ(ReadFrames(*source, 3), ThreeRead) << name;
        }
    }
    EXPECT_EQ(LWaveFile::OpenSource((dir / "missing.wav").c_str())->status, SoundCannotOpen);
    EXPECT_EQ(LWaveFile::OpenSource((dir / "").c_str())->status, SoundInvalidFormat) << "a folder";
    mkfifo((dir / "pipe.wav").c_str(), 0600);
    EXPECT_EQ(LWaveFile::OpenSource((dir / "pipe.wav").c_str())->status, SoundInvalidFormat)
        << "must not wait";
}

TEST(WaveFile, SilenceLiesBeforeAndBehindTheFile) {
    const TempDir dir;
    WriteBytes(dir / "in.wav", Wave(Pcm16 + Chunk("data", ThreeSamples) + "JUNKJUNK"));
    const LSoundSource source = LWaveFile::OpenSource((dir / "in.wav").c_str());
    const std::pair<int, std::vector<int>> cases[] = {
        {-2, {0, 0, 16, 32, -16, 0, 0}}, {2, {-16, 0}}, {-5, {0, 0, 0, 0, 0, 16}}, {0x7FFFFFFF, {0}}};
    for (const auto& [target, samples] : cases) {
        source->Seek(target);
        EXPECT_EQ(ReadInPieces(*source, static_cast<int>(samples.size())), samples) << target;
    }
    source->Seek(-2);
    ReadFrames(*source, 7);
    EXPECT_EQ(source->GetPositionSample(), 5) << "the frames that were asked for";
}

TEST(WaveFile, AFrameThatTheFileCutsShortIsSilentFromTheCutOn) {
    const TempDir dir;
    const std::string stereo = Format(1, 2, 8000, 16);
    WriteBytes(dir / "cut.wav", Wave(stereo + "data" + Le(12, 4) + ThreeSamples + "\x7F"));
    const auto [header, source] = LWaveFile::Open((dir / "cut.wav").c_str());
    EXPECT_TRUE(header.IsCutShort());
    EXPECT_EQ(source->GetEndSample(), 3);
    EXPECT_EQ(ReadFrames(*source, 3), (std::vector<int>{16, 32, -16, 0, 0, 0}));
    WriteBytes(dir / "whole.wav", Wave(stereo + Chunk("data", ThreeSamples + "\x7F\x7F")));
    EXPECT_FALSE(LWaveFile::Open((dir / "whole.wav").c_str()).header.IsCutShort());
}

TEST(WaveFile, AFileOfUnknownLengthStreamsUntilItsLengthIsWritten) {
    const TempDir dir;
    const std::string path = dir / "growing.wav";
    for (const std::uint32_t unknown : {0xFFFFFFFFu, 0xFFFFFFD9u}) {
        const std::string head = Wave(Pcm16 + "data");
        WriteBytes(path, head + Le(unknown, 4) + ThreeSamples);
        const auto [header, source] = LWaveFile::Open(path.c_str());
        EXPECT_TRUE(source->IsStreaming());
        EXPECT_FALSE(header.IsCutShort());
        EXPECT_EQ(source->GetEndSample(), 3);
        WriteBytes(path, head + Le(unknown, 4) + ThreeSamples + ThreeSamples);
        source->Seek(2);
        EXPECT_EQ(source->GetEndSample(), 6);
        EXPECT_EQ(ReadFrames(*source, 2), (std::vector<int>{-16, 16})) << "looking must not move the file";
        WriteBytes(path, head + Le(10, 4) + ThreeSamples + ThreeSamples);
        EXPECT_EQ(source->GetEndSample(), 5);
        EXPECT_FALSE(source->IsStreaming());
    }
}

TEST(WaveFile, AFileOfUnknownLengthThatNobodyWritesHasTheLengthThatItHas) {
    const TempDir dir;
    const std::string path = dir / "left.wav";
    WriteBytes(path, Wave(Pcm16 + "data") + Le(0xFFFFFFFF, 4) + ThreeSamples);
    const LSoundSource playing = LWaveFile::OpenSource(path.c_str());
    for (const auto& [seconds, streams] : {std::pair{3, true}, {6, false}}) {
        std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() -
                                                   std::chrono::seconds(seconds));
        const LSoundSource opened = LWaveFile::OpenSource(path.c_str());
        EXPECT_EQ(opened->IsStreaming(), streams) << seconds;
        EXPECT_EQ(opened->GetEndSample(), 3);
    }
    WriteBytes(path, Wave(Pcm16 + "data") + Le(0xFFFFFFFF, 4) + ThreeSamples + ThreeSamples);
    EXPECT_EQ(playing->GetEndSample(), 6);
    EXPECT_TRUE(playing->IsStreaming());
    WriteBytes(path,
               Wave(Format(1, 1, 16000, 16) + "data") + Le(0xFFFFFFFF, 4) + ThreeSamples + ThreeSamples);
    EXPECT_EQ(LWaveFile::OpenSource(path.c_str())->sampleRate, 16000)
        << "what is remembered of it is outdated";
    while (playing->IsStreaming()) { // for five seconds
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_EQ(playing->GetEndSample(), 6);
    }
}

} // namespace
