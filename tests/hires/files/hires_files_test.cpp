#include "hires/channel_source.h"
#include "hires/files/file_source.h"
#include "hires/files/file_writer.h"
#include "hires/files/read_facts.h"
#include "hires/random.h"
#include "hires/raw_writer.h"
#include "jobs/frame_reader.h"
#include "support/run_program.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <numbers>

namespace {

using Frames = std::vector<std::int32_t>;

const HiresFileTags Tags{"sonvire 1.2", "1 kHz, -3 dB"};

/// Writes a file; answers what became of it.
LFailure WriteTo(LReadWriteFile&& file, const std::string& name, const HiresFileFormat& format,
                 const Frames& samples, const HiresFileTags& tags = Tags) {
    const HiresFileKind& kind = *HiresFileKind::Find(name);
    std::unique_ptr<HiresSink> sink;
    if (kind.container == HiresFileKind::Container::Raw)
        sink = std::make_unique<HiresRawWriter>(std::move(file), format);
    else
        sink = std::make_unique<HiresFileWriter>(std::move(file), kind, format, tags);
    static_cast<void>(sink->Write(samples.data(), static_cast<int>(samples.size()) / format.channels));
    return sink->Finish();
}

LFailure WriteFile(const std::string& path, const HiresFileFormat& format, const Frames& samples) {
    return WriteTo(LSharedReadWriteFile(path.c_str()), path, format, samples);
}

/// By calls of odd sizes, which must make no difference.
Frames ReadAll(HiresSource& source, std::int64_t frames) {
    Frames all(static_cast<std::size_t>(frames * source.channels), 0x5EED);
    for (std::int64_t done = 0, size = 1; done < frames; done += size, size = size * 3 % 20011 + 1) {
        size = std::min(size, frames - done);
        source.Read(&all[static_cast<std::size_t>(done * source.channels)], static_cast<int>(size));
    }
    return all;
}

struct Read {
    Frames samples;
    std::vector<LFileWarning> told;
};

/// All of a file, behind which there must be silence.
Read ReadFile(const std::string& path, std::optional<int> rate = {}, std::optional<int> channels = {}) {
    const auto news = std::make_shared<LSourceNews>();
    HiresTone input = OpenHiresFile(path, rate, news);
    EXPECT_TRUE(input.source) << path << input.failure.GetReason();
    if (!input.source)
        return {};
    if (channels)
        input.source = HiresChannels::Open(std::move(input.source), *channels);
    Frames samples = ReadAll(*input.source, input.source->GetLength() + 9);
    const auto end = samples.end() - 9 * input.source->channels;
    EXPECT_TRUE(std::all_of(end, samples.end(), [](std::int32_t sample) { return sample == 0; }));
    return {Frames(samples.begin(), end), news->Take()};
}

TEST(HiresFiles, WriteAndReadEachKindToTheBit) {
    using enum HiresSamples;
    const Frames in = {INT32_MIN, INT32_MAX, 0x1234'5678, -0x1234'5678, 0x80, -0x81};
    const Frames in16 = {INT32_MIN, 0x7FFF'0000, 0x1234'0000, -0x1234'0000, 0, 0};
    const Frames in24 = {INT32_MIN, 0x7FFF'FF00, 0x1234'5600, -0x1234'5600, 0x100, -0x100};
    const Frames inFloat = {INT32_MIN, INT32_MAX, 0x1234'5680, -0x1234'5680, 0x80, -0x81}; // 24 bits of each
    const struct {
        const char *name, *start, *codec, *kind;
        int formatTag; ///< of WAVE, 0 in others
        HiresFileFormat format;
        Frames expected;
    } cases[] = {
        {"plain.wav", "RIFF", "pcm_s16le", "WAVE, 16 bits", 1, {96000, 2, Int16}, in16},
        {"bits.WAV", "RIFF", "pcm_s24le", "WAVE, 24 bits", 0xFFFE, {8000, 2, Int24}, in24},
        {"mono.wav", "RIFF", "pcm_s32le", "WAVE, 32 bits", 0xFFFE, {768000, 1, Int32}, in},
        {"float.wav", "RIFF", "pcm_f32le", "WAVE, 32-bit float", 0xFFFE, {44100, 2, Float}, inFloat},
        {"fits.wav", "RIFF", "pcm_s16le", "WAVE, 16 bits", 1, {44100, 2, Int16, 1'073'700'000}, in16},
        {"long.wav", "RF64", "pcm_s16le", "RF64, 16 bits", 0xFFFE, {44100, 2, Int16, 1'073'741'824}, in16},
        {"long_float.wav",
         "RF64",
         "pcm_f32le",
         "RF64, 32-bit float",
         0xFFFE,
         {44100, 1, Float, 1'073'741'824},
         inFloat},
        {"a.flac", "fLaC", "flac", "FLAC, 16 bits", 0, {96000, 2, Int16}, in16},
        {"b.flac", "fLaC", "flac", "FLAC, 24 bits", 0, {655350, 1, Int24}, in24},
        {"a.aiff", "FORM", "pcm_s16be", "AIFF, 16 bits", 0, {44100, 2, Int16}, in16},
        {"b.aif", "FORM", "pcm_s24be", "AIFF, 24 bits", 0, {192000, 1, Int24}, in24},
        {"c.aiff", "FORM", "pcm_f32be", "AIFF, 32-bit float", 0, {44100, 2, Float}, inFloat},
        {"a.w64", "riff", "pcm_s24le", "W64, 24 bits", 0, {48000, 2, Int24}, in24},
        {"a.caf", "caff", "pcm_s32be", "CAF, 32 bits", 0, {48000, 2, Int32}, in},
        {"b.caf", "caff", "pcm_f32be", "CAF, 32-bit float", 0, {48000, 1, Float}, inFloat},
    };
    const TempDir dir;
    for (auto [name, start, codec, kind, tag, format, expected] : cases) {
        const std::string path = dir / name;
        format.dither = false;
        EXPECT_FALSE(WriteFile(path, format, in)) << name;
        const std::string bytes = ReadBytes(path);
        EXPECT_EQ(bytes.substr(0, 4), start) << name;
        const std::size_t tagAt = bytes.find("fmt ") + 8;
        EXPECT_TRUE(tag == 0 || ((bytes[tagAt] & 0xFF) | (bytes[tagAt + 1] & 0xFF) << 8) == tag) << name;

        const ProgramResult decoded = RunProgram("ffmpeg -i " + path + " -f s32le -");
        for (const std::string& part :
             {"Audio: " + std::string(codec), " " + std::to_string(format.rate) + " Hz",
              std::string(format.channels == 1 ? ", mono" : ", stereo"),
              start == std::string("riff") ? "" : ": " + Tags.comment})
            EXPECT_NE(decoded.errors.find(part), std::string::npos) << name << ": " << part << decoded.errors;
        const auto* const raw = reinterpret_cast<const char*>(expected.data());
        EXPECT_EQ(decoded.output, std::string(raw, expected.size() * sizeof expected[0])) << name;
        const Read read = ReadFile(path);
        EXPECT_EQ(read.samples, expected) << name;
        EXPECT_TRUE(read.told.empty()) << name;
        const HiresFileFacts facts = ReadHiresFacts(path);
        EXPECT_EQ(facts.kind, kind);
        EXPECT_EQ(std::tie(facts.rate, facts.channels), std::tie(format.rate, format.channels)) << name;
        EXPECT_EQ(facts.frames, 6 / format.channels) << name;
        EXPECT_EQ(facts.program.find(Tags.program), start == std::string("riff") ? std::string::npos : 0)
            << name;
        EXPECT_EQ(facts.comment, start == std::string("riff") ? "" : Tags.comment) << name;

        // Not even the time makes a difference.
        EXPECT_FALSE(WriteFile(dir / ("again-" + std::string(name)), format, in));
        EXPECT_EQ(ReadBytes(dir / ("again-" + std::string(name))), bytes) << name;
        const std::size_t peak = bytes.find("PEAK");
        EXPECT_TRUE(peak == std::string::npos || bytes.substr(peak + 12, 4) == std::string(4, '\0')) << name;
    }
}

TEST(HiresFiles, TellWhatAKindCanNotHold) {
    using enum HiresSamples;
    EXPECT_EQ(HiresFileKind::Find("a.mp3"), nullptr);
    EXPECT_EQ(HiresFileKind::ListExtensions(), ".wav, .flac, .aiff, .w64, .caf or .raw");
    const std::string flacRates =
        "is a FLAC file, which holds rates up to 65535 Hz, and multiples of 10 Hz up to 655350 Hz";
    const std::tuple<const char*, HiresFileFormat, std::string> cases[] = {
        {"a.flac", {44100, 2, Float}, "is a FLAC file, which holds 16 or 24 bits"},
        {"a.flac", {44100, 2, Int32}, "is a FLAC file, which holds 16 or 24 bits"},
        {"a.flac", {96001, 2, Int24}, flacRates},
        {"a.flac", {768000, 2, Int24}, flacRates},
        {"a.flac", {44100, 2, Int24, std::int64_t{1} << 36}, "is a FLAC file, which holds 2^36 frames"},
        {"a.aif", {44100, 2, Int24, 715'827'883}, "is an AIFF file, which holds 4 GiB"},
        {"a.w64", {44100, 2, Int24, 715'827'883}, ""},
        {"a.caf", {44100, 2, Int24, 715'827'883}, ""},
    };
    for (const auto& [name, format, reason] : cases)
        EXPECT_EQ(HiresFileKind::Find(name)->Check(format).GetReason(), reason) << name;

    // A pipe takes raw and WAVE files alone, the same ones.
    const TempDir dir;
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    EXPECT_EQ(WriteTo(LReadWriteFile::Duplicate(ends[1]), "a.caf", {44100, 1}, {1, 2}).GetReason(),
              "can't be rewound, which all kinds but WAVE and raw need");
    const std::pair<const char*, HiresFileFormat> pipeable[] = {
        {"a.wav", {44100, 2, Float, 500}}, {"a.wav", {44100, 1, Int24, 3}}, {"a.raw", {44100, 1, Int24, 3}}};
    for (const auto& [name, format] : pipeable) {
        const Frames samples(static_cast<std::size_t>(format.frames * format.channels), 7 << 20);
        EXPECT_FALSE(WriteTo(LReadWriteFile::Duplicate(ends[1]), name, format, samples));
        EXPECT_FALSE(WriteFile(dir / name, format, samples));
        std::string piped = ReadBytes(dir / name);
        EXPECT_EQ(read(ends[0], piped.data(), piped.size()), static_cast<ssize_t>(piped.size()));
        EXPECT_EQ(piped, ReadBytes(dir / name));
    }
    EXPECT_EQ(close(ends[0]) + close(ends[1]), 0);

    for (const HiresFileKind& kind : HiresFileKind::GetAll()) {
        const std::string name = kind.extensions[0];
        const LFailure full = WriteTo(LSharedReadWriteFile("/dev/full"), name, {44100, 1}, Frames(9999));
        EXPECT_EQ(full.GetError(), ENOSPC) << name;

        // What stands before the offset stays, and nothing behind.
        LSharedReadWriteFile file((dir / "behind").c_str());
        EXPECT_FALSE(file.Write(std::string(9000, 'x').data(), 9000));
        EXPECT_TRUE(file.SeekTo(10));
        EXPECT_FALSE(WriteTo(std::move(file), name, {44100, 1}, Frames(99)));
        EXPECT_FALSE(WriteFile(dir / name, {44100, 1}, Frames(99)));
        EXPECT_EQ(ReadBytes(dir / "behind"), std::string(10, 'x') + ReadBytes(dir / name)) << name;

        const HiresFileTags tooLong{"sonvire", std::string(20'000, 'x')};
        EXPECT_FALSE(
            WriteTo(LSharedReadWriteFile((dir / name).c_str()), name, {44100, 1}, Frames(99), tooLong));
        if (kind.container == HiresFileKind::Container::Raw)
            continue;
        EXPECT_EQ(ReadFile(dir / name).samples, Frames(99)) << name;
    }
}

TEST(HiresFiles, DitherLeavesNoTraceOfTheSignal) {
    const TempDir dir;
    // At every part of a step, what is added has the power of a quarter (1/6 of the triangle, 1/12 of
    // rounding) and no tone. The bounds are some five times what chance makes of them.
    for (const int part : {0, 0x4000, 0x8000, -0x1000}) {
        EXPECT_FALSE(
            WriteFile(dir / "a.wav", {44100, 1, HiresSamples::Int16, 0, true, 7}, Frames(200'000, part)));
        const Frames stored = ReadFile(dir / "a.wav").samples;
        double sum = 0, power = 0, withLast = 0, last = 0;
        for (const std::int32_t sample : stored) {
            const double error = (sample - part) / 65536.0;
            sum += error;
            power += error * error;
            withLast += error * std::exchange(last, error);
        }
        EXPECT_NEAR(sum / 200'000, 0, 0.006) << part;
        EXPECT_NEAR(power / 200'000, 0.25, 0.006) << part;
        EXPECT_NEAR(withLast / 200'000, 0, 0.003) << part;
    }
}

TEST(HiresFiles, AreConvertedWithoutATrace) {
    const TempDir dir;
    const std::tuple<int, int, std::int64_t> cases[] = {
        {44100, 48000, 16327}, {96000, 44100, 6891}, {44100, 192000, 65306}, {48000, 44101, 13782}};
    const auto sine = [](int rate, std::int64_t frame) {
        return std::lround(
            std::ldexp(0.5 * std::sin(2 * std::numbers::pi * 997 * static_cast<double>(frame) / rate), 31));
    };
    for (const auto& [from, to, frames] : cases) {
        Frames in(15'000);
        for (std::size_t i = 0; i < in.size(); ++i)
            in[i] = static_cast<std::int32_t>(sine(from, static_cast<std::int64_t>(i)));
        EXPECT_FALSE(WriteFile(dir / "a.wav", {from, 1, HiresSamples::Int32}, in));
        const Frames out = ReadFile(dir / "a.wav", to).samples;
        EXPECT_EQ(out.size(), static_cast<std::size_t>(frames)) << to;
        std::int64_t worst = 0;
        for (std::int64_t i = frames / 4; i < frames * 3 / 4; ++i)
            worst = std::max(worst, std::abs(out[static_cast<std::size_t>(i)] - sine(to, i)));
        EXPECT_LT(worst, 60) << from << " to " << to << " is 145 dB below the sine";
    }
}

TEST(HiresFiles, ChannelsAndExcessAreBroughtToWhatIsWanted) {
    const TempDir dir;
    const std::vector<float> floats = {0.5, -0.25, 1.5, 1.5, -1, -1, std::nanf(""), 0.5};
    WriteBytes(dir / "raw", {reinterpret_cast<const char*>(floats.data()), floats.size() * sizeof(float)});
    const std::string path = dir / "a.wav";
    RunProgram("ffmpeg -v error -f f32le -ar 8000 -ac 2 -i " + (dir / "raw") + " -c:a pcm_f32le " + path);
    const std::vector<LFileWarning> clipped = {{path, "exceeds full scale and is clipped", false}};
    const Read mono = ReadFile(path, {}, 1), stereo = ReadFile(path, {}, 2);
    EXPECT_EQ(mono.samples, (Frames{1 << 28, INT32_MAX, INT32_MIN, 1 << 29})) << "the mean of both sides";
    EXPECT_EQ(stereo.samples,
              (Frames{1 << 30, -1 << 29, INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN, 0, 1 << 30}));
    EXPECT_EQ(mono.told, clipped);
    EXPECT_EQ(stereo.told, clipped);

    EXPECT_FALSE(WriteFile(dir / "mono.flac", {8000, 1}, {0x100, 0x200}));
    EXPECT_EQ(ReadFile(dir / "mono.flac", {}, 2).samples, (Frames{0x100, 0x100, 0x200, 0x200}));
}

TEST(HiresFiles, FramesAreThoseOfTheFile) {
    const TempDir dir;
    const double values[] = {1.5, -1, 0.5, 0.25, -3, 0.75}; // 6 channels of one frame, 3 of two...
    WriteBytes(dir / "raw", {reinterpret_cast<const char*>(values), sizeof values});
    const std::string from = "ffmpeg -v error -f f64le ";
    const std::string clipped = from + "-ac 2 -ar 800000 -i raw -c:a ";
    const struct {
        std::string make;
        int rate, channels, bits;
        std::vector<double> expected;
        const char* told = "";
    } cases[] = {
        {from + "-ac 6 -ar 7 -i raw -c:a pcm_f64le f.wav", 7, 6, 0, {values, values + 6}},
        {from + "-ac 3 -ar 8000 -i raw -c:a pcm_f32be f.aiff", 8000, 3, 0, {values, values + 6}},
        {clipped + "pcm_s16le f.wav", 800'000, 2, 16, {0x7FFF / 32768.0, -1, 0.5, 0.25, -1, 0.75}},
        {clipped + "pcm_u8 f.wav && truncate -s -1 f.wav",
         800'000,
         2,
         8,
         {127 / 128.0, -1, 0.5, 0.25},
         "is cut short; 1 frames are missing"},
        {clipped + "pcm_s32le f.caf", 800'000, 2, 32, {INT32_MAX * 0x1p-31, -1, 0.5, 0.25, -1, 0.75}},
        {"sox -r 44100 -c 2 -t f64 raw -b 24 -t flac - | cat > f.flac",
         44100,
         2,
         24,
         {0x7FFFFF * 0x1p-23, -1, 0.5, 0.25, -1, 0.75}},
        {"head -c 2000 /dev/zero | ffmpeg -v error -f s16le -ar 32000 -ac 2 -i - -f ogg -c:a libvorbis f.ogg",
         32000, 2, 0, std::vector<double>(1000)},
    };
    for (const auto& [make, rate, channels, bits, expected, told] : cases) {
        const std::string path = dir / make.substr(make.rfind(' ') + 1);
        RunProgram("cd " + (dir / "") + " && rm -f f.* && " + make);
        const FrameInput input = ReadFileFrames(path);
        ASSERT_TRUE(input.reader) << make << input.failure.GetReason();
        const FrameReader::Format& format = input.reader->format;
        EXPECT_EQ(std::tie(format.rate, format.channels, format.bits), std::tie(rate, channels, bits))
            << make;
        std::vector<double> read(expected.size() + 6);
        read.resize(input.reader->Read(read) * static_cast<std::size_t>(channels));
        EXPECT_EQ(read, expected) << make;
        const std::vector<LFileWarning> warnings = input.news->Take();
        EXPECT_EQ(warnings.empty() ? "" : warnings.front().reason, told) << make;
    }
    EXPECT_EQ(ReadFileFrames(dir / "raw").failure.GetReason(), "is damaged or of a kind that is not read");
}

TEST(HiresFiles, BadOnesDoNoHarm) {
    const TempDir dir;
    const auto news = std::make_shared<LSourceNews>();
    WriteBytes(dir / "text.wav", "this is no sound");
    RunProgram("ffmpeg -v error -f lavfi -i anullsrc=cl=5.1 -t 0.01 " + (dir / "six.wav"));
    EXPECT_FALSE(WriteFile(dir / "fast.wav", {800'000, 1}, Frames(9)));
    const std::pair<std::string, const char*> refused[] = {
        {"none.wav", "No such file or directory"},
        {"", "Is a directory"},
        {"text.wav", "is damaged or of a kind that is not read"},
        {"six.wav", "has 6 channels; mono and stereo can be used"},
        {"fast.wav", "is at 800000 Hz; rates up to 768000 Hz can be used"},
    };
    EXPECT_EQ(ReadHiresFacts(dir / "text.wav").failure.GetReason(), refused[2].second);
    for (const auto& [name, reason] : refused)
        EXPECT_EQ(OpenHiresFile(dir / name, {}, news).failure.GetReason(), reason) << name;

    // Whatever changes while a file waits, its length stays; thousands wait, none of them open.
    Frames noise(30'000);
    HiresRandom random(1);
    std::generate(noise.begin(), noise.end(), [&random] { return static_cast<std::int32_t>(random.Draw()); });
    const std::string path = dir / "a.flac";
    EXPECT_FALSE(WriteFile(path, {44100, 2}, noise));
    std::vector<HiresSourcePtr> waiting;
    for (int i = 0; i < 3000; ++i)
        waiting.push_back(OpenHiresFile(path, {}, news).source);
    ASSERT_TRUE(waiting.back());
    const std::pair<std::string, const char*> changes[] = {
        {ReadBytes(path).substr(0, std::filesystem::file_size(path) - 9),
         "is cut short; silence stands for the rest"},
        {"", "can't be read any more"},
        {ReadBytes(dir / "six.wav"), "has been replaced by another file"},
    };
    for (const auto& [bytes, reason] : changes) {
        WriteBytes(path, bytes);
        const Frames samples = ReadAll(*waiting.back(), 15'000);
        EXPECT_EQ(Frames(samples.end() - 9, samples.end()), Frames(9)) << reason;
        EXPECT_EQ(news->Take(), (std::vector<LFileWarning>{{path, reason}}));
        waiting.pop_back();
    }

    // Silence stands for what a header promises, but not where it was written into a pipe.
    const std::vector<LFileWarning> cut = {{dir / "cut", "is cut short; silence stands for the rest", false}};
    for (const std::string kind : {".wav", ".aiff", ".w64"}) {
        EXPECT_FALSE(WriteFile(dir / ("whole" + kind), {8000, 2, HiresSamples::Int32}, noise));
        WriteBytes(dir / "cut", ReadBytes(dir / ("whole" + kind)).substr(0, 100'001));
        EXPECT_TRUE(ReadHiresFacts(dir / "cut").isCutShort) << kind;
        const Read read = ReadFile(dir / "cut");
        EXPECT_EQ(read.samples.size(), noise.size()) << kind;
        EXPECT_EQ(Frames(read.samples.begin(), read.samples.begin() + 24'900),
                  Frames(noise.begin(), noise.begin() + 24'900));
        EXPECT_EQ(read.told, cut) << kind;
    }
    RunProgram("sox -n -r 8000 -t wav - synth 1 sine 440 | cat >" + (dir / "sox.wav"));
    EXPECT_EQ(ReadFile(dir / "sox.wav").samples.size(), 8000);

    // What libsndfile does not find shows at the end; what it only guesses is no loss.
    RunProgram(
        "cd " + (dir / "") +
        " && ffmpeg -v error -f lavfi -i anoisesrc=a=0.1 -t 2 one.ogg && ffmpeg -v error -i one.ogg one.mp2 "
        "&& cat one.ogg one.ogg >two.ogg");
    RunProgram("ffmpeg -v error -i " + (dir / "one.ogg") + " -c:a flac -f flac - >" + (dir / "piped.flac"));
    EXPECT_EQ(ReadFile(dir / "piped.flac").samples.size(), ReadFile(dir / "one.ogg").samples.size());
    EXPECT_EQ(ReadHiresFacts(dir / "piped.flac").frames, 96000);
    EXPECT_FALSE(WriteFile(dir / "empty.flac", {8000, 1}, {}));
    EXPECT_EQ(ReadFile(dir / "empty.flac").samples, Frames());
    EXPECT_TRUE(ReadFile(dir / "one.ogg").told.empty());
    EXPECT_TRUE(ReadFile(dir / "one.mp2").told.empty());
    EXPECT_EQ(ReadFile(dir / "two.ogg").told[0].reason, "is longer than it tells; the rest is left out");

    // Any byte of a header may be wrong.
    for (const HiresFileKind& kind : HiresFileKind::GetAll()) {
        const std::string good = dir / ("good" + std::string(kind.extensions[0]));
        EXPECT_FALSE(WriteFile(good, {44100, 2}, Frames(noise.begin(), noise.begin() + 200)));
        std::string bytes = ReadBytes(good);
        for (std::size_t i = 0; i < 300; ++i) {
            const char byte = std::exchange(bytes[i], static_cast<char>(i % 2 == 0 ? 0xFF : ~bytes[i]));
            const std::string bad = good + std::to_string(i);
            WriteBytes(bad, bytes);
            bytes[i] = byte;
            if (const HiresTone input = OpenHiresFile(bad, 48000, news); input.source)
                ReadAll(*input.source, 100);
        }
    }
}

TEST(HiresFiles, HaveTagsOfAnyBytes) {
    const TempDir dir;
    const std::pair<std::string, std::string> cases[] = {
        {"caf\xE9.wav", "caf?.wav"},
        {"caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x8E\xB5", "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x8E\xB5"},
        {"\xC0\xAF \xED\xA0\x80 \xF5\x80\x80\x80 \xEF\xBF\xBF \xC3", "?? ??? ???? ??? ?"}, // no characters
        {std::string(7999, 'x') + "\xC3\xA9", std::string(7999, 'x')},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_FALSE(
            WriteTo(LSharedReadWriteFile((dir / "a.flac").c_str()), "a.flac", {8000, 1}, {1}, {"p", text}));
        EXPECT_EQ(ReadHiresFacts(dir / "a.flac").comment, expected);
    }
}

TEST(HiresFiles, TellWhichLibraryIsMissing) {
    const TempDir dir;
    EXPECT_FALSE(WriteFile(dir / "a.flac", {8000, 1}, Frames(9)));
    for (const std::string library : {"libsndfile.so.1", "libsoxr.so.0"}) {
        std::filesystem::create_directory(dir / "empty");
        WriteBytes(dir / ("empty/" + library), "");
        ExpectRefused(RunProgram("cd " + (dir / "") +
                                 " && LD_LIBRARY_PATH=empty exec " SONVIRE_CLI
                                 " render --quality high --rate 44100 a.flac b.raw"),
                      {"a.flac: needs " + library.substr(0, library.find('.')) + ", which is not installed"});
        std::filesystem::remove_all(dir / "empty");
    }
}

} // namespace
