#include "support/command_line.h"
#include "support/sound_server.h"

#include <gmock/gmock.h>

#include <cstring>
#include <sys/stat.h>

namespace {

using ::testing::HasSubstr;

int CountSignChanges(const std::vector<int>& samples) {
    int count = 0;
    for (std::size_t i = 1; i < samples.size(); ++i)
        count += (samples[i] < 0) != (samples[i - 1] < 0) ? 1 : 0;
    return count;
}

/// Whether a process has written more than a header into a file in this folder, which need not have a name.
bool Writes(pid_t process, const std::string& folder) {
    std::error_code gone;
    for (const auto& each :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/fd", gone))
        if (read_symlink(each.path(), gone).native().starts_with(folder) && file_size(each.path(), gone) > 46)
            return !gone;
    return false;
}

class Render : public CommandLine {
protected:
    Render() {
        for (const char* tone : {"endless.tdf", "--duration 1000 second.tdf",
                                 "--duration 1000 --loop loop.tdf", "--duration 10000000 hours.tdf"})
            EXPECT_EQ(Cli(std::string("make ") + tone).status, 0) << tone;
        Write("ages.tdf", Read("second.tdf").replace(4, 4, "\xFF\xFF\xFF\xFF")); // its milliseconds
    }
};

TEST_F(Render, WritesTheToneAsOtherProgramsReadIt) {
    const ProgramResult result = Cli("render second.tdf a.wav");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output + result.errors, "") << "no terminal, no progress";
    const std::string bytes = Read("a.wav");
    ASSERT_EQ(bytes.size(), 46u + 88200u);
    // 18610, 36843, 54330 in internal samples
    EXPECT_EQ(bytes.substr(46, 6), "\x8B\x04\xFF\x08\x44\x0D");
    RunProgram("sox a.wav -t raw sox.raw");
    EXPECT_EQ(Read("sox.raw"), bytes.substr(46));
    RunProgram("ffmpeg -v error -i a.wav -f s16le ffmpeg.raw");
    EXPECT_EQ(Read("ffmpeg.raw"), bytes.substr(46));
}

TEST_F(Render, ReadsWhatOtherProgramsWriteAsTheyReadIt) {
    RunProgram("sox -n -r 22050 -c 2 -b 16 sox16.wav synth 1.23457 sine 440 sine 550 gain -3");
    RunProgram("sox -n -r 11025 -c 1 -b 8 -D odd8.wav synth 999s pinknoise gain -9");
    RunProgram("sox -n -r 8000 -c 1 -e ima-adpcm ima.wav synth 1.111 sine 300:900 gain -3");
    RunProgram("ffmpeg -v error -f lavfi -i sine=frequency=600:duration=1.3 -metadata "
               "title=Chunk ffmpeg.wav");
    for (const std::string name : {"sox16", "odd8", "ima", "ffmpeg"}) {
        EXPECT_EQ(Cli("render " + name + ".wav ours.wav").status, 0) << name;
        RunProgram("sox " + name + ".wav -D -e signed -b 16 -t raw theirs.raw");
        RunProgram("sox ours.wav -t raw ours.raw");
        EXPECT_EQ(Read("ours.raw"), Read("theirs.raw")) << name;
    }
}

TEST_F(Render, ConvertsAsAsked) {
    const std::tuple<std::string, unsigned int, const char*> cases[] = {
        {"--bits 8 second.tdf", 44100, "\1\0\x44\xAC"}, // the bytes are the channels and the rate
        {"--channels 2 second.tdf", 4 * 44100, "\2\0\x44\xAC"},
        {"--rate 22050 second.tdf", 2 * 22050, "\1\0\x22\x56"},
        {"--duration 250 second.tdf", 2 * 11025, "\1\0\x44\xAC"},
        {"--duration 100 endless.tdf", 2 * 4410, "\1\0\x44\xAC"},
        {"--duration 100 loop.tdf", 2 * 4410, "\1\0\x44\xAC"}};
    for (const auto& [input, bytes, format] : cases) {
        EXPECT_EQ(Cli("render " + input + " o.wav").status, 0);
        EXPECT_EQ(Read("o.wav").size(), 46 + bytes) << input;
        EXPECT_EQ(Read("o.wav").substr(22, 4), std::string(format, 4)) << input;
    }
}

TEST_F(Render, WhatIsTooLoudIsLimitedNotWrapped) {
    RunProgram("sox -n -r 44100 -c 2 -b 16 -D loud.wav synth 1 square 100 square 100 gain 0");
    RunProgram("sox loud.wav -D mono.wav remix 1");
    RunProgram("sox mono.wav -D -r 48000 48.wav trim 0 0.5");
    Write("rates.tdl", Path("48.wav") + "\n" + Path("mono.wav") + "\n"); // the last line plays first
    for (const std::string input :
         {"--channels 1 --bits 16 loud.wav", "--channels 1 --bits 8 loud.wav", "--bits 8 mono.wav",
          "--bits 8 --waveform square --tones 6 --frequency 100 --duration 1000", "rates.tdl"}) {
        EXPECT_EQ(Cli("render --quiet " + input + " m.wav").status, 0);
        RunProgram("sox m.wav -D -e signed -b 16 -t raw m.raw");
        // A wrapped sample would stand out among its neighbours.
        const std::vector<int> samples = SamplesOf(Read("m.raw"));
        EXPECT_EQ(CountSignChanges(samples), input == "rates.tdl" ? 299 : 199) << input;
        EXPECT_GT(*std::max_element(samples.begin(), samples.end()), 31800) << input;
    }
    const std::string usual = "--duration 1000 --frequency 440 ";
    for (const auto& [input, told] : std::initializer_list<std::pair<std::string, std::string>>{
             {"--channels 1 loud.wav", "loud.wav: is too loud, and limited by up to 6.02 dB"}, // both sides
             {"mono.wav", ""},
             {usual + "--quality high --amplitude -47", ""}, // beside -12.04
             {usual + "--quality high --amplitude -48",
              "the tone: is below -60 dBFS: its peak is -60.04 dBFS"},
             {usual + "--amplitude -80",
              "the tone: is below -60 dBFS: its peak is -90.31 dBFS"}, // the last bit
             {usual + "--amplitude -120", "the tone: is silent"}})
        EXPECT_EQ(Cli("render --strict " + input + " m.wav").errors,
                  told.empty() ? "" : "sonvire-cli: warning: " + told + "\n");
}

TEST_F(Render, WritesWhereItCanAndSaysWhereItCant) {
    const std::string render = SONVIRE_CLI " render --duration 100 ";
    mkfifo(Path("pipe.wav").c_str(), 0600);
    Write("mine.wav", "kept");
    std::filesystem::create_directory(Path("closed"));
    const std::tuple<std::string, int, std::string> cases[] = {
        {render + "pipe.wav", 2, "pipe.wav: is a pipe that nobody reads"},
        {render + "- >> mine.wav", 2, "standard output: is open for appending"},
        {render + "/dev/stdout >> mine.wav", 2, "standard output: is open for appending"},
        {render + "/dev/stdout > new.wav && soxi -s new.wav", 0, ""},
        {"ulimit -f 64; " SONVIRE_CLI " render second.tdf mine.wav", 2, // which stands in for a full disk
         "mine.wav: could not be written in full: File too large"},
        {"ln -s nowhere/x.wav link.wav; " + render + "link.wav", 2,
         "link.wav: can't be opened for writing: No"}};
    for (const auto& [command, status, reason] : cases) {
        const ProgramResult result = RunProgram(command);
        EXPECT_EQ(result.status, status) << command;
        EXPECT_THAT(result.errors, HasSubstr(reason));
    }
    EXPECT_EQ(Read("mine.wav"), "kept");
    EXPECT_EQ(dir.CountFiles(), 10u) << "nothing temporary stays";
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can become a user who may not write into a folder";
    Write("closed/o.wav", "old");
    std::filesystem::copy_file(SONVIRE_CLI, Path("cli"));
    RunProgram("chmod -R a+rX . && chmod a+w closed/o.wav");
    EXPECT_EQ(
        RunProgram("setpriv --reuid 65534 --clear-groups ./cli render --duration 100 closed/o.wav").errors,
        "");
    EXPECT_EQ(Read("closed/o.wav").size(), 46u + 2 * 4410) << "written in its place";
    RunProgram("ulimit -f 64; setpriv --reuid 65534 --clear-groups ./cli render --duration 1s closed/o.wav");
    EXPECT_EQ(Read("closed/o.wav").size(), 46u + 2 * 4410) << "what fails leaves it";
}

TEST_F(Render, NoiseIsTheSameForASeedOnly) {
    for (const std::string noise : {"white", "pink"}) {
        const auto render = [&](const std::string& seed) {
            EXPECT_EQ(Cli("render " + seed + " --waveform " + noise + " --duration 100 n.wav").status, 0);
            return Read("n.wav");
        };
        EXPECT_EQ(render("--seed 5"), render("--seed 5"));
        EXPECT_NE(render("--seed 5"), render("--seed 6"));
    }
}

TEST_F(Render, ARefusalIsOneLineThatNamesTheFileAndTheReason) {
    Write("short.tdf", std::string(796, 'x'));
    Write("garbage.wav", "RIFF is not enough");
    Write("tone.mp3", "x");
    RunProgram("sox -n -r 8000 -b 24 24.wav synth 0.1 sine 100");
    Write("six.wav",
          std::string("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\6\0\x40\x1F\0\0\0\0\0\0\x0C\0\x10\0", 36) +
              std::string("data\x0C\0\0\0............", 20));
    // 2014500000 frames: 47000 / 44100 of them could be counted, but not the 16/15 that the fraction makes of
    // them.
    Write("long.wav",
          std::string("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x44\xAC\0\0\0\0\0\0\1\0\x08\0", 36) +
              "data\xA0\xD4\x12\x78");
    std::filesystem::resize_file(Path("long.wav"), 2014500044);
    RunProgram("sox -n -r 8000 -c 2 -e ima-adpcm stereoima.wav synth 0.1 sine 100");
    std::filesystem::create_symlink(Path("second.tdf"), Path("link.tdf"));
    std::filesystem::create_directory(Path("folder.tdf"));
    Write("kept.wav", "kept");
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"missing.tdf kept.wav", "missing.tdf", "No such file or directory"},
        {"folder.tdf kept.wav", "folder.tdf", "Is a directory"},
        {"short.tdf kept.wav", "short.tdf", "is not a whole tone"},
        {"garbage.wav kept.wav", "garbage.wav", "is damaged"},
        {"24.wav kept.wav", "24.wav", "IMA ADPCM are supported (--quality high reads it)"},
        {"stereoima.wav kept.wav", "stereoima.wav", "mono only"},
        {"tone.mp3 kept.wav", "tone.mp3", "unknown type"},
        {"endless.tdf kept.wav", ": endless.tdf", ": has no end (--duration gives it one)"},
        {"loop.tdf kept.wav", ": loop.tdf", ": has no end (--duration gives it one)"},
        {"ages.tdf kept.wav", "ages.tdf", "lasts longer"},
        {"--rate 192000 --channels 2 hours.tdf kept.wav", "hours.tdf", "too long"},
        {"--rate 47000 --bits 8 long.wav kept.wav", "long.wav", "is too long to be converted"},
        {"--channels 1 six.wav kept.wav", "six.wav", "6 channels"},
        {"--duration 5 24.wav kept.wav", "24.wav", "a duration goes with tones"},
        {"second.tdf second.tdf", "second.tdf", "is read by the input"},
        {"second.tdf link.tdf", "link.tdf", "is read by the input"},
        {"second.tdf no/folder.wav", "folder.wav", "can't be created: No such file"},
        {"second.tdf ./", "./", "can't be created: Is a directory"},
        {"second.tdf /dev/full", "/dev/full", "written in full: No space left on device"},
        {"second.tdf new.tdl", "new.tdl", "no name for a WAVE file"},
        {"second.tdf ''", ": ", "OUTPUT, the sound file to write, is required"},
        {"second.tdf " + std::string(300, 'n') + ".wav", "nnn", "can't be created: File name too long"},
        {"second.tdf song.ogg", "song.ogg", "is no name for a WAVE file, which ends in .wav"},
        {"--duration 1 --rate 100 kept.wav", "the tone", "is too short for a frame at that rate"},
        {"second.tdf 'two\nlines/x.wav'", "two?lines", "No such file"},
        {"--rate 1.5 second.tdf kept.wav", "--rate", "not a whole number of hertz"},
        {"--rate 0x1F40 second.tdf kept.wav", "--rate", "is not understood"},
        {"--rate 0 second.tdf kept.wav", "--rate", "not in the range"},
        {"--bits 12 second.tdf kept.wav", "--bits", "12"},
        {"--duration -5 second.tdf kept.wav", "--duration", "-5"},
        {"second.tdf", "OUTPUT", "required"},
    };
    for (const auto& [arguments, file, reason] : cases) {
        ExpectRefused(Cli("render " + arguments), {file, reason});
        EXPECT_EQ(Read("kept.wav"), "kept") << arguments;
    }
    EXPECT_EQ(Read("second.tdf").size(), 797u);
}

TEST_F(Render, AFileThatIsCutShortIsRenderedWithAWarning) {
    RunProgram("sox -n -r 8000 -b 16 whole.wav synth 1 sine 100");
    Write("cut.wav", Read("whole.wav").substr(0, 4044));
    const ProgramResult result = Cli("render cut.wav o.wav");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, HasSubstr("cut.wav: is cut short"));
    EXPECT_EQ(Read("o.wav").size(), 46u + 16000u);
}

TEST_F(Render, CtrlCEndsWithAValidShorterFileOrTheOneThatWasThere) {
    const auto endOnceItWrites = [this](int signal) {
        return [this, signal](pid_t child) {
            EXPECT_TRUE(WaitFor([this, child] { return Writes(child, Path("")); }));
            kill(child, signal);
        };
    };
    const std::string command = "render --rate 44099 hours.tdf part.wav";
    const ProgramResult result = RunCli(command, endOnceItWrites(SIGINT));
    EXPECT_EQ(result.status, 1) << result.errors;
    const std::string bytes = Read("part.wav");
    ASSERT_GT(bytes.size(), 46u);
    EXPECT_EQ((bytes.size() - 46) % (2 * 8192), 0u) << "whole blocks";
    std::uint32_t dataBytes = 0;
    std::memcpy(&dataBytes, &bytes[42], 4);
    EXPECT_EQ(dataBytes, bytes.size() - 46);
    Write("part.wav", "kept");
    EXPECT_EQ(RunCli(command, endOnceItWrites(SIGINT)).status, 1);
    EXPECT_EQ(Read("part.wav"), "kept");
    EXPECT_EQ(RunCli(command, endOnceItWrites(SIGKILL)).status, 128 + SIGKILL);
    EXPECT_EQ(Cli("render second.tdf part.wav").status, 0);
    EXPECT_EQ(dir.CountFiles(), 6u) << "nothing stays of the one that was killed";
}

TEST_F(Render, AProgressBarStandsOnTheTerminal) {
    const std::string render = "script -qec '" SONVIRE_CLI " render ";
    const std::string command = "hours.tdf --duration 600000 o.wav' /dev/null";
    const std::string shown = RunProgram(render + command).output;
    EXPECT_THAT(shown, HasSubstr("  0% ["));
    EXPECT_THAT(shown, HasSubstr("100% [##############################]"));
    EXPECT_THAT(shown, HasSubstr(" times real time"));
    EXPECT_EQ(RunProgram(render + "--quiet " + command).output, "");
}

TEST_F(Render, HelpAndVersionArePlain) {
    EXPECT_EQ(RunCli("--version").output, "sonvire-cli 2.14\n");
    EXPECT_THAT(Cli("--help").output, HasSubstr("render"));
    for (const std::string command : {"", "render", "make", "list", "show", "play", "devices"}) {
        const std::string help = Cli(command + " --help").output;
        EXPECT_THAT(help, HasSubstr("--help"));
        EXPECT_EQ(Cli(command + " -h").output, help);
        std::istringstream lines(help);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 80u) << line;
    }
}

} // namespace
