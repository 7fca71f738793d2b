#include "support/command_line.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstring>
#include <numbers>

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

using Frames = std::vector<std::array<double, 2>>; ///< in steps of 16 bits

class Certificates : public CommandLine {
protected:
    /// What is in a file of two channels and 16 bits.
    Frames Load(const std::string& name) const {
        RunProgram("sox " + name + " -t raw raw");
        const std::string bytes = Read("raw");
        Frames frames;
        for (std::size_t i = 0; i < bytes.size(); i += 4) {
            std::int16_t pair[2];
            std::memcpy(pair, &bytes[i], 4);
            frames.push_back({double(pair[0]), double(pair[1])});
        }
        return frames;
    }
    void Save(const Frames& frames, const std::string& name) const {
        std::string bytes;
        for (const auto& frame : frames)
            for (const double sample : frame) {
                const auto rounded =
                    static_cast<std::int16_t>(std::clamp(std::lround(sample), -32768L, 32767L));
                bytes.append(reinterpret_cast<const char*>(&rounded), 2);
            }
        Write("raw", bytes);
        RunProgram("sox -r 44100 -c 2 -b 16 -e signed -t raw raw " + name);
    }
};

TEST_F(Certificates, HoldTheSumOfTheSamplesThatOtherProgramsMake) {
    const std::string sox = "sox %s -L -t raw - | sha256sum",
                      ffmpeg = "ffmpeg -v error -i %s -f f32le - | sha256sum";
    for (const auto& [options, name, sum] :
         std::initializer_list<std::tuple<std::string, std::string, std::string>>{
             {"", "a.wav", sox},
             {"--bits 8 --channels 2", "a.wav", sox},
             {"", "a.flac", sox},
             {"--bits 16 --rate 96k", "a.aiff", sox}, // whose own order is the other one
             {"--bits 32", "a.w64", sox},
             {"--bits float", "a.wav", ffmpeg}}) {
        Cli("render --frequency 440 --duration 100 " + options + " --certificate c.json " + name);
        const std::string sha =
            RunProgram(std::string(sum).replace(sum.find('%'), 2, name)).output.substr(0, 64);
        EXPECT_THAT(Read("c.json"), HasSubstr("\"sha256\": \"" + sha + "\"")) << options << name;
        EXPECT_EQ(Cli("measure --against c.json " + name).output, name + " is what c.json says\n");
    }
}

TEST_F(Certificates, TellWhatTheFileWasMadeOfAndNotWhereOrWhen) {
    std::filesystem::create_directories(Path("there/sub"));
    Cli("make --duration 50 there/sub/x.tdf");
    Cli("list there/list.tdl there/sub/x.tdf 20ms there/sub/x.tdf");
    const std::string render = "render --seed 5 --quality high --level -6 --fade 1 --bits 16 --quiet ";
    EXPECT_EQ(Cli(render + "there/list.tdl there/o.wav --certificate there/c.json").status, 0);
    const std::string first = Read("there/c.json");
    for (const std::string part :
         {R"("type": "certificate")", R"("inputName": "list.tdl")", R"("file": "sub/x.tdf")",
          R"("durationMs": 120)", R"("quality": "high")", R"("seed": 5)", R"("levelDbfs": -6.0)",
          R"("fadeInMs": 1.0)", R"("dither": "tpdf")", R"("name": "o.wav")", R"("format": "WAVE, 16 bits")",
          R"("frames": 5292)", R"("peakDbfs": -6.0)"})
        EXPECT_THAT(first, HasSubstr(part));
    EXPECT_THAT(first, Not(HasSubstr(Path(""))));
    std::filesystem::rename(Path("there"), Path("here"));
    EXPECT_EQ(Cli(render + Path("here/list.tdl") + " here/o.wav --certificate d.json").status, 0);
    EXPECT_EQ(Read("d.json"), first);
    Cli("render --waveform square --duration 50 --certificate c.json o.wav");
    EXPECT_THAT(Read("c.json"), HasSubstr(R"("waveform": "Square")")) << "a tone without a file";
}

TEST_F(Certificates, NameWhatWasDoneToAFile) {
    Cli("render --frequency 997 --right 1500 --duration 5s --quality high --bits 16 --level -1 a.wav "
        "--certificate c.json");
    const Frames original = Load("a.wav");
    const auto sine = [](double hz, std::size_t frame) { // of -1 dBFS
        return 29204.0 * std::sin(2 * std::numbers::pi * hz * static_cast<double>(frame) / 44100);
    };
    const auto each = [](auto change) {
        return [change](Frames& frames) { std::for_each(frames.begin(), frames.end(), change); };
    };
    const struct {
        std::function<void(Frames&)> edit;
        std::vector<std::string> told;
    } cases[] = {
        {[](Frames&) {}, {}},
        {[&](Frames& frames) { // 997 x 1.0001
             for (std::size_t i = 0; i < frames.size(); ++i)
                 frames[i] = {sine(997.0997, i), sine(1500.15, i)};
         },
         {"frequency: left 100.0 ppm higher: 997.0997 Hz instead of 997.0000 Hz",
          "frequency: right 100.0 ppm higher: 1500.1500 Hz instead of 1500.0000 Hz"}},
        {each([](auto& frame) {
             frame = {frame[0] * 0.98855, frame[1] * 0.98855};
         }), // 10^(-0.1/20)
         {"level: 0.10 dB lower: RMS -4.11 dBFS instead of -4.01 dBFS"}},
        {each([](auto& frame) { frame[1] += 3.2768; }), // which rounding leaves 3 of, nearly always
         {"DC: right 0.0092% of full scale instead of 0.0000%"}},
        {[](Frames& frames) { frames.erase(frames.begin() + 100'000); },
         {"length: 220499 frames instead of 220500 frames",
          "frames: 1 dropped between frames 99905 and 103349"}}, // the marks are 220500 / 64 apart
        {[](Frames& frames) {
             frames.erase(frames.begin() + 10'000, frames.begin() + 10'002);
             frames.insert(frames.begin() + 150'000, 2, {});
         },
         {"frames: 2 dropped between frames 6890 and 10333",
          "frames: 2 inserted between frames 148133 and 151580"}},
        {[](Frames& frames) { frames.pop_back(); },
         {"length: 220499 frames instead of 220500 frames",
          "samples: not the same ones, although all figures agree"}},
        {each([](auto& frame) { frame[0] *= 1.12202; }), // by 1 dB: 0.1% and more are cut off
         {"level: left 1.00 dB higher: RMS -3.01 dBFS instead of -4.01 dBFS", "clipped samples: left "}},
        {each([](auto& frame) { frame[0] = std::clamp(frame[0], -29176.0, 29176.0); }), // 0.1% of 29205
         {"flat tops: left "}},
        {each([](auto& frame) { std::swap(frame[0], frame[1]); }), {"channels: swapped"}},
        {each([](auto& frame) {
             frame = {frame[1] / 2, frame[0] / 2};
         }),
         {"channels: swapped, and not to the bit the same",
          "level: 6.02 dB lower: RMS -10.03 dBFS instead of -4.01 dBFS"}},
        {each([](auto& frame) {
             frame = {-frame[0], -frame[1]};
         }),
         {"polarity: inverted"}},
        {each([](auto& frame) { frame[0] = -frame[0]; }), {"polarity: left inverted"}},
        {each([](auto& frame) {
             frame[0] = frame[1] = (frame[0] + frame[1]) / 2;
         }), // each tone halved in power
         {"level: 3.01 dB lower: RMS -7.02 dBFS instead of -4.01 dBFS", "Number of tones: 2 instead of 1",
          "Correlation: 1.0000 instead of 0.0000"}},
        {[](Frames& frames) { frames[777][1] += 1; },
         {"samples: not the same ones, although all figures agree"}},
    };
    for (const auto& [edit, told] : cases) {
        Frames frames = original;
        edit(frames);
        Save(frames, "b.wav");
        const ProgramResult result = RunProgram("cat b.wav | " SONVIRE_CLI " measure - --against c.json");
        EXPECT_EQ(result.status, told.empty() ? 0 : 1);
        std::istringstream lines(result.output);
        std::string line;
        std::getline(lines, line);
        EXPECT_EQ(line, told.empty() ? "standard input is what c.json says"
                                     : "standard input is not what c.json says:");
        for (const std::string& expected : told) {
            std::getline(lines, line);
            EXPECT_EQ(line.substr(0, expected.size() + 2), "  " + expected);
        }
        EXPECT_FALSE(std::getline(lines, line)) << line;
    }
    for (const auto& [convert, told] : std::initializer_list<std::pair<const char*, const char*>>{
             {"a.wav b.flac", ""},
             {"a.wav -b 24 b.wav", "  samples: 24 bits instead of 16 bits\n"},
             {"a.wav b.wav remix 1", "  channels: 1 instead of 2\n"},
             {"-r 88200 a.wav b.wav", "  rate: 88200 Hz instead of 44100 Hz\n"}}) {
        const std::string name = std::string(convert).ends_with("flac") ? "b.flac" : "b.wav";
        RunProgram("sox " + std::string(convert));
        EXPECT_THAT(Cli("measure --against c.json " + name).output,
                    EndsWith(*told ? told : "is what c.json says\n"));
    }

    // The sample of a peak goes on at the other end of the range.
    Cli("render --frequency 997 --right 0 --duration 1s --quality high --bits 16 --level 0 --dither none "
        "a.wav "
        "--certificate c.json");
    Frames frames = Load("a.wav");
    frames[11][0] = -32768; // 997 Hz reach their first peak at frame 11.06
    Save(frames, "b.wav");
    const ProgramResult wrapped = Cli("measure --json --against c.json b.wav");
    EXPECT_EQ(wrapped.status, 1);
    for (const char* part : {R"("isSame": false)", R"("what": "wrapped samples")",
                             R"("text": "left 1 instead of 0, the first at frame 11")"})
        EXPECT_THAT(wrapped.output, HasSubstr(part));
}

TEST_F(Certificates, AreRefusedWhereTheyCanNotHold) {
    const std::string render = SONVIRE_CLI " render --frequency 440 --duration 10ms ";
    const std::string measure = SONVIRE_CLI " measure o.wav --against ";
    RunProgram(render + "o.wav --certificate good.json && cp o.wav in.wav");
    const std::string good = Read("good.json");
    Write("cut.json", good.substr(0, good.size() / 2));
    Write("later.json", std::string(good).replace(good.find("\"version\": 1"), 12, "\"version\": 2"));
    Write("holed.json", std::string(good).replace(good.find("\"tones\""), 7, "\"tomes\""));
    Write("nested.json", "{\"type\":" + std::string(100'000, '[') + std::string(100'000, ']') + "}");
    Write("other.json", std::string(good).replace(good.find("\"bits\": 16"), 10, "\"bits\": 24"));
    Write("tone.json", R"({"type": "tone", "version": 1})");
    const std::pair<std::string, std::string> cases[] = {
        {render + "- --certificate c.json | cat", "c.json: is for a sound file, which can be read back"},
        {render + "--raw r.wav --certificate c.json", "c.json: is for a sound file, which can be read back"},
        {render + "r.raw --certificate c.json", "c.json: is for a sound file, which can be read back"},
        {render + "r.wav --certificate -", "-: is no name for a file"},
        {render + "r.wav --certificate ''", "is no name for a file"},
        {"ln -s l.wav l.json; " + render + "l.wav --certificate l.json",
         "l.json: is the sound file; l.wav is"},
        {measure + "''", "No such file"},
        {render + "r.wav --certificate ./r.wav", "./r.wav: is the sound file"},
        {render + "r.wav --no-clobber --certificate good.json", "good.json: is there already, and stays"},
        {render + "r.wav --certificate none/c.json", "none/c.json: can't be created: No such file"},
        {SONVIRE_CLI " render in.wav r.wav --certificate in.wav", "in.wav: is read by the input"},
        // which stands in for a disk that is full once the sound file is there
        {"ulimit -f 4; " + render + "o.wav --certificate good.json",
         "good.json: can't be written: File too large; o.wav is complete"},
        {measure + "none.json", "none.json: No such file"},
        {measure + ".", ".: Is a directory"},
        {measure + "o.wav", "o.wav: is no certificate, or a damaged one"},
        {measure + "cut.json", "cut.json: is no certificate, or a damaged one"},
        {measure + "tone.json", "tone.json: is no certificate, or a damaged one"},
        {measure + "nested.json", "nested.json: is no certificate, or a damaged one"},
        {measure + "other.json", "other.json: is a damaged certificate"},
        {measure + "later.json", "later.json: is a certificate of another version"},
        {measure + "holed.json", "holed.json: is a damaged certificate"}};
    for (const auto& [command, reason] : cases) {
        const ProgramResult result = RunProgram(command);
        EXPECT_THAT(result.errors, HasSubstr(reason)) << command;
        EXPECT_EQ(result.status, command.ends_with("cat") ? 0 : 2) << command;
    }
    EXPECT_FALSE(std::filesystem::exists(Path("r.wav")));
    EXPECT_EQ(Read("l.wav").substr(0, 4), "RIFF");
    EXPECT_FALSE(std::filesystem::exists(Path("good.json"))) << "which was that of an older file";
    Write("forged.json", std::string(good).replace(good.find("Dbtp\": -12"), 10, "Dbtp\": -11"));
    const ProgramResult forged = Cli("measure o.wav --against forged.json");
    EXPECT_EQ(forged.status, 0) << "the samples decide";
    EXPECT_THAT(forged.errors,
                HasSubstr("forged.json: tells other figures than these samples have; True peak: "));
}

TEST_F(Certificates, TellWhereAFrameOfAnySoundIsMissing) {
    Cli("make --duration 1s --waveform square --frequency 100 a.tdf");
    Cli("list l.tdl a.tdf 100ms a.tdf");
    for (const std::string input :
         {"a.tdf", "l.tdl", "--waveform pink --seed 1 --duration 1s",
          "--frequency 20 --end 20000 --sweep log --duration 1s --quality high --bits 16",
          "--frequency 220,440,660,880,1100,1320 --duration 1s"}) {
        Cli("render --channels 2 " + input + " a.wav --certificate c.json");
        Frames frames = Load("a.wav");
        frames.erase(frames.begin() + 30'000);
        frames.push_back({}); // the length is the same
        Save(frames, "b.wav");
        EXPECT_THAT(Cli("measure --against c.json b.wav").output,
                    HasSubstr("  frames: 1 dropped between frames "))
            << input;
    }
}

} // namespace
