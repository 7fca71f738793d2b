#include "support/command_line.h"

#include <gmock/gmock.h>

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class HighQuality : public CommandLine {
protected:
    ProgramResult Render(const std::string& arguments) { return Cli("render --quality high " + arguments); }
};

TEST_F(HighQuality, EveryKindOfFileHoldsTheSameSamples) {
    const std::string tone = " --frequency 997,3k --right 440 --level -9.5 --rate 48k --duration 200 ";
    const struct {
        const char *bits, *decoded; ///< as another program calls them
        std::vector<const char*> kinds;
        std::size_t frameBytes;
    } cases[] = {{"16", "s16le", {"wav", "flac", "aiff", "w64", "caf"}, 4},
                 {"24", "s24le", {"wav", "flac", "aif", "w64", "caf"}, 6},
                 {"32", "s32le", {"wav", "aiff", "w64", "caf"}, 8},
                 {"float", "f32le", {"wav", "aiff", "w64", "caf"}, 8}};
    for (const auto& [bits, decoded, kinds, frameBytes] : cases) {
        const std::string again = std::string(bits) + (bits == std::string("16") ? " --dither none" : "");
        const std::string options = tone + "--bits " + bits + " ";
        ASSERT_EQ(Render("--raw" + options + "ours").status, 0);
        const std::string ours = Read("ours");
        EXPECT_EQ(ours.size(), 9600 * frameBytes);
        for (const std::string kind : kinds) {
            EXPECT_THAT(Render(options + "a." + kind).errors, IsEmpty());
            RunProgram("ffmpeg -v error -y -i a." + kind + " -f " + decoded + " theirs");
            EXPECT_EQ(Read("theirs"), ours) << bits << " in " << kind;
            // Each is read again as it is, at its own rate.
            EXPECT_EQ(Render("--raw --bits " + again + " a." + kind + " again").status, 0);
            EXPECT_EQ(Read("again"), ours) << bits << " from " << kind;
        }
    }
    RunProgram(SONVIRE_CLI " render --quality high --duration 1s --rate 96k - | sox -t wav - -t s24 theirs");
    ASSERT_EQ(Render("--raw --rate 96k --duration 1s ours").status, 0);
    EXPECT_EQ(Read("theirs"), Read("ours")) << "through a pipe";
}

TEST_F(HighQuality, WhatTheStandardQualityLacksTakesItAndSaysSo) {
    Cli("render --duration 9 in.flac");
    for (const auto& [arguments, what] : {std::pair<std::string, std::string>{"--level -3 o.wav", "--level"},
                                          {"--fit o.wav", "--fit"},
                                          {"--fade 1,2 o.wav", "--fade"},
                                          {"--bits 24 o.wav", "--bits 24"},
                                          {"--rate 200k o.wav", "--rate 200000"},
                                          {"--bits 16 --dither none o.wav", "--dither"},
                                          {"--raw o.wav", "--raw"},
                                          {"o.FLAC", "o.FLAC"},
                                          {"o.raw", "o.raw"}}) {
        const ProgramResult result = Cli("render --duration 50 " + arguments);
        EXPECT_EQ(result.status, 0) << arguments;
        EXPECT_EQ(result.errors,
                  "sonvire-cli: warning: " + what + ": goes with high quality, which is taken\n");
        EXPECT_THAT(Render("--duration 50 " + arguments).errors, IsEmpty());
        ExpectRefused(Cli("render --quality standard --duration 50 " + arguments),
                      {what + " goes with high quality, not with --quality standard"});
    }
    EXPECT_THAT(Cli("render in.flac o.wav").errors, HasSubstr("in.flac: goes with high quality"));
    EXPECT_THAT(Cli("render --quality high --frequency 30k --duration 1 o.wav").errors,
                HasSubstr("the tone: is silent: no component has a level and lies below half the rate"));
    EXPECT_THAT(Cli("show in.flac").output, HasSubstr("FLAC, 24 bits\nSample rate  44100Hz\n"));
    EXPECT_THAT(Cli("show in.flac").output, HasSubstr("Sine 1 Frequency 1000.00Hz; Sine Duration 9ms;"));
}

TEST_F(HighQuality, RefusalsNameTheFileAndTheReason) {
    Cli("make --frequency 440 endless.tdf");
    RunProgram("sox -n six.wav remix 0 0 0 0 0 0 trim 0 0.1");
    RunProgram("sox -n -b 24 in.wav synth 0.1 sine 100");
    Write("kept.wav", "kept");
    Write("kept.flac", "kept");
    const std::tuple<std::string, std::string, std::string> cases[] = {
        // 20 lg 2 is 6.0206, and 20 lg (4 * 0.25003) is 0.0012
        {"--level 0dBFS --frequency 1k,2k kept.wav", "the tone",
         "would exceed full scale by 6.03 dB; a level of -6.03 dBFS fits"},
        {"--frequency 1k,2k,3k,4k kept.wav", "the tone",
         "would exceed full scale by 0.01 dB; a level of -12.05 dBFS fits"},
        {"--level 101 kept.wav", "--level", "not in the range -200 to 100"},
        {"--level loud kept.wav", "--level", "is not understood"},
        {"--fade 1,2,3 kept.wav", "--fade", "is not one duration or two"},
        {"--fade slowly kept.wav", "--fade", "is not understood"},
        {"--fade=-5 kept.wav", "--fade", "is not in the range 0 to 1h"},
        {"--dither none kept.wav", "--dither", "goes with --bits 16"},
        {"--bits 8 kept.wav", "--bits 8", "goes with the standard quality"},
        {"--bits float kept.flac", "kept.flac", "is a FLAC file, which holds 16 or 24 bits"},
        {"--rate 196001 kept.flac", "kept.flac", "holds rates up to 65535 Hz, and multiples of 10 Hz"},
        {"--rate 7999 kept.wav", "--rate 7999", "has rates from 8000 Hz on"},
        {"--rate 768001 kept.wav", "--rate", "not in the range"},
        {"song.ogg", "song.ogg", "is no name for a sound file, which ends in .wav, .flac"},
        {"no/folder.flac", "folder.flac", "can't be created: No such file"},
        {"/dev/full", "/dev/full", "No space left on device"},
    };
    for (const auto& [arguments, file, reason] : cases)
        ExpectRefused(Render("--duration 100 " + arguments), {file, reason});
    ExpectRefused(Render("endless.tdf kept.wav"), {"endless.tdf", "has no end (--duration gives it one)"});
    ExpectRefused(Render("six.wav kept.wav"), {"six.wav", "has 6 channels"});
    ExpectRefused(Render("in.wav in.wav"), {"in.wav", "is read by the input"});
    ExpectRefused(Render("--fade 5 in.wav kept.wav"), {"in.wav", "keeps its level"});
    ExpectRefused(Render("test.txt kept.wav"), {"test.txt", "No such file"});
    ExpectRefused(RunProgram("ulimit -f 64; " SONVIRE_CLI
                             " render --quality high --duration 1s --bits 24 --waveform white kept.flac"),
                  {"kept.flac", "File too large"});
    ExpectRefused(RunProgram(SONVIRE_CLI " render --quality high --duration 1s - >> kept.wav"),
                  {"standard output: is open for appending"});
    EXPECT_EQ(Read("kept.wav") + Read("kept.flac"), "keptkept");
}

TEST_F(HighQuality, ListsReadEverySoundFile) {
    RunProgram("sox -n -r 48000 -b 24 -c 2 a.flac synth 0.25 sine 500 sine 700");
    RunProgram("sox -n -r 24000 -b 16 b.aiff synth 0.25 sine 500");
    Cli("make --frequency 100 --duration 250 t.tdf");
    EXPECT_THAT(Cli("list l.tdl a.flac b.aiff 250ms t.tdf").errors,
                HasSubstr("b.aiff: plays in high quality only; else it is of an unknown type"));
    Cli("list ll.tdl l.tdl 10ms");
    EXPECT_THAT(Cli("show ll.tdl --quality high").output, HasSubstr("Total         00:01.010\n"));
    const ProgramResult result = Render("--raw --bits 24 --rate 48k l.tdl ours");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, IsEmpty());
    RunProgram("ffmpeg -v error -i a.flac -f s24le theirs");
    const std::string ours = Read("ours");
    EXPECT_EQ(ours.size(), 48000 * 6u);
    EXPECT_EQ(ours.substr(0, 12000 * 6), Read("theirs")) << "as it is, at the rate that it has";
    EXPECT_EQ(ours.substr(24000 * 6, 12000 * 6), std::string(12000 * 6, '\0')) << "the silence";
    RunProgram("sox -n -r 8000 -b 24 whole.wav synth 1 sine 100 && head -c 12080 whole.wav > cut.wav");
    Cli("list cut.tdl cut.wav");
    for (const std::string input : {"cut.wav", "cut.tdl"}) {
        const std::string told = Render("--raw " + input + " ours").errors;
        EXPECT_THAT(told, HasSubstr("cut.wav: is cut short"));
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << "told once";
        EXPECT_EQ(Read("ours").size(), (input == "cut.wav" ? 8000 : 44100) * 3u) << "with silence behind";
        EXPECT_EQ(Render("--strict --raw " + input + " strict.raw").status, 2);
    }
}

} // namespace
