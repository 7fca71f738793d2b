#pragma once

#include "sys/process_result.h"

#include <chrono>

/// Shows a job on one line of the terminal: percent done, time elapsed and speed as a multiple of real time,
/// drawn at most ten times a second. Draws nothing where standard error is no terminal. Ctrl-C is the Cancel
/// button.
class ProgressLine {
public:
    /// `seconds` is the length of the sound that the job makes.
    ProgressLine(bool quiet, double seconds);
    /// Leaves the line as it stands at the end of the job.
    void Finish(bool completed);

    // What a job asks of its progress display.
    void SetText(int /*control*/, const char* /*text*/) {}
    void PBSetProgress(int control, double fraction);
    bool IsToStop() const;

private:
    using Clock = std::chrono::steady_clock;

    void Draw(double fraction) const;

    bool visible;
    double length;
    double done = 0;
    Clock::time_point start = Clock::now();
    Clock::time_point nextDraw = start;
};

/// Runs a job with its progress on the terminal.
template <class Job>
LProcessResult RunJob(Job& job, double seconds, bool quiet) {
    ProgressLine progress(quiet, seconds);
    const LProcessResult result = Process(progress, job);
    progress.Finish(result == LProcessResult::Completed);
    return result;
}
