#include "cli/play_display.h"

#include "cli/refusal.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace {

constexpr int MeterCells = 20;
constexpr int MeterStepDb = 3;
constexpr int MeterTopDb = 15; // a square wave at full scale
constexpr int MeterBottomDb = MeterTopDb - MeterCells * MeterStepDb;

std::string FormatTime(int ms) {
    char text[32];
    std::snprintf(text, sizeof text, "%d:%02d.%d", ms / 60000, ms / 1000 % 60, ms / 100 % 10);
    return text;
}

std::string FormatMeter(LDB level) {
    const int above = level.GetDecibels() - MeterBottomDb;
    const auto cells = static_cast<std::size_t>(std::clamp(above / MeterStepDb, 0, MeterCells));
    char number[16];
    std::snprintf(number, sizeof number, "%4d dB", level.GetDecibels());
    return " [" + std::string(cells, '#') + std::string(MeterCells - cells, '.') + "]" +
           (level == LDB() ? " silent" : number);
}

} // namespace

PlayDisplay::PlayDisplay(LEventLoop& ended, const InputFacts& input, LSoundTime inputLength)
    : loop(ended),
      length(inputLength),
      endless(input.endless || input.isNeverLeft),
      news(input.news),
      visible(isatty(STDERR_FILENO) != 0) {}

void PlayDisplay::TellNews() {
    for (const LFileWarning& warning : news->Take())
        Warn(warning.file, warning.reason + (warning.isLoss ? "; silence plays in its place" : ""));
}

void PlayDisplay::spntfStop(long /*id*/) {
    TellNews();
    if (visible)
        std::fputs("\n", stderr);
    loop.Quit();
}

void PlayDisplay::spntfLevel(const LDBMC& measured, long /*id*/) {
    levels = measured;
}

void PlayDisplay::spntfHeard(const LSoundHeard& heard, long /*id*/) {
    sinceStart = heard.sinceStart;
}

void PlayDisplay::spntfTime(LSoundTime time, long /*id*/) {
    TellNews();
    if (visible)
        Draw(endless ? sinceStart : time);
}

void PlayDisplay::Draw(LSoundTime position) const {
    std::string meters;
    for (int c = 0; c < levels.GetChannels(); ++c)
        meters += FormatMeter(levels[c]);
    const std::string total = endless ? "endless" : FormatTime(length.GetMilliseconds());
    std::fprintf(stderr, "\r%s / %s%s ", FormatTime(position.GetMilliseconds()).c_str(), total.c_str(),
                 meters.c_str());
}
