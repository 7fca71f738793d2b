#include "cli/progress_line.h"

#include "cli/interrupt.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace {

constexpr int BarCells = 30;
constexpr std::chrono::milliseconds DrawInterval{100};

} // namespace

ProgressLine::ProgressLine(bool quiet, double seconds)
    : visible(!quiet && isatty(STDERR_FILENO) != 0),
      length(seconds) {}

void ProgressLine::PBSetProgress(int /*control*/, double fraction) {
    done = fraction;
    if (!visible)
        return;
    const Clock::time_point now = Clock::now();
    if (now < nextDraw)
        return;
    nextDraw = now + DrawInterval;
    Draw(fraction);
}

bool ProgressLine::IsToStop() const {
    return IsInterrupted();
}

void ProgressLine::Draw(double fraction) const {
    const double elapsed = std::max(1e-3, std::chrono::duration<double>(Clock::now() - start).count());
    const int cells = static_cast<int>(fraction * BarCells);
    const std::string bar = std::string(static_cast<std::size_t>(cells), '#') +
                            std::string(static_cast<std::size_t>(BarCells - cells), '.');
    std::fprintf(stderr, "\r%3.0f%% [%s] %.1f s, %.0f times real time ", fraction * 100, bar.c_str(), elapsed,
                 fraction * length / elapsed);
}

void ProgressLine::Finish(bool completed) {
    if (!visible)
        return;
    Draw(completed ? 1.0 : std::min(done, 1.0));
    std::fputs("\n", stderr);
}
