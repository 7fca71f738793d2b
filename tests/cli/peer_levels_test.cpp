#include "support/command_line.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

namespace {

using PeerLevels = CommandLine;

/// The words behind each `label` of what a program prints.
std::vector<std::string> GetWords(const std::string& printed, const std::string& label) {
    std::vector<std::string> words;
    for (auto at = printed.find(label); at != std::string::npos; at = printed.find(label, at)) {
        at += label.size();
        std::istringstream line(printed.substr(at, printed.find('\n', at) - at));
        for (std::string word; line >> word;)
            words.push_back(word);
    }
    return words;
}

TEST_F(PeerLevels, AreOursToTheLastDigitThatTheyPrint) {
    const struct {
        const char* field;
        const char *sox, *ffmpeg;
        double unit; ///< of ours; 0: decibels of the others' factor
    } figures[] = {{"peakDbfs", "Pk lev dB", "Peak level dB:", 1},
                   {"rmsDbfs", "RMS lev dB", "RMS level dB:", 1},
                   {"crestDb", "Crest factor", "Crest factor:", 0},
                   {"dcPercent", "DC offset", "DC offset:", 0.01}};
    const std::pair<const char*, const char*> cases[] = {
        {"-b 16 -c 2", "synth 1 sine 997 sine 440 gain -3 dcshift 0.01"},
        {"-b 8 -c 1", "synth 2 sine 440 gain -6"},
        {"-b 8 -c 2", "synth 1 pinknoise square 100 gain -20"},
        {"-b 24 -c 2", "synth 2 sine 50 pluck 220 gain -1"},
        {"-b 24 -c 1 -r 96000", "synth 1 whitenoise gain -12 dcshift -0.2"},
        {"-e float -b 32 -c 2", "synth 1 exp 100 trapezium 300 gain -0.1"},
        {"-b 32 -c 1 -r 8000", "synth 3 sine 20:3000 gain -60"},
        {"-b 16 -c 1 -r 192000", "synth 0.05 sawtooth 1000"},
        {"-D -b 16 -c 2", "trim 0 1"},
        {"-D -b 16 -c 1", "synth 1 square 0 gain -90"},
        {"-b 16 -c 1", "synth 1 sine 1000 gain 3"},
        {"-b 16 -c 2", "synth 3 sine 1000 tremolo 3 fade t 1 3 1"},
    };
    for (const auto& [format, sound] : cases) {
        RunProgram("sox -R -n " + std::string(format) + " peer.wav " + sound);
        const std::string sox = RunProgram("sox peer.wav -n stats 2>&1").output;
        const std::string ffmpeg = RunProgram("ffmpeg -nostdin -hide_banner -i peer.wav "
                                              "-af aformat=dblp,astats -f null - 2>&1") // full scale as ours
                                       .output;
        const nlohmann::json channels =
            nlohmann::json::parse(Cli("measure --json peer.wav").output)["channels"];
        for (std::size_t c = 0; c < channels.size(); ++c)
            for (const auto& [field, soxLabel, ffmpegLabel, unit] : figures) {
                const nlohmann::json& found = channels[c][field];
                const double silent = unit == 1 ? -INFINITY : NAN;
                const double ours = found.is_null() ? silent
                                    : unit == 0     ? std::pow(10, found.get<double>() / 20)
                                                    : found.get<double>() * unit;
                for (const std::string& theirs :
                     {GetWords(sox, soxLabel).at(channels.size() == 2 ? c + 1 : 0),
                      GetWords(ffmpeg, ffmpegLabel).at(c)}) {
                    const auto digits = static_cast<int>(theirs.size() - 1 - theirs.find('.'));
                    if (std::isfinite(ours)) {
                        EXPECT_NEAR(std::stod(theirs), ours, 0.501 * std::pow(10, -digits))
                            << field << ' ' << sound;
                    } else if (unit == 1) {
                        EXPECT_EQ(theirs, "-inf") << field << ' ' << sound;
                    }
                }
            }
    }
}

} // namespace
