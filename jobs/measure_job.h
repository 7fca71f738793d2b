#pragma once

#include "jobs/frame_reader.h"
#include "measure/sound_meter.h"
#include "sys/process_result.h"

#include <vector>

/// The job of measuring what a reader hands out, to its end. Owns neither.
struct MeasureJob {
    static constexpr const char* Title = "Measuring";
    static constexpr std::size_t BlockFrames = 32768;

    FrameReader& reader;
    SoundMeter& meter;
};

/// Runs the job on the calling thread in blocks, asking between them whether to stop. What `ProgressDialog`
/// has is told in sound/render_job.h; it hears of no progress where the length is not known.
template <class ProgressDialog>
LProcessResult Process(ProgressDialog& dialog, MeasureJob& job) {
    dialog.SetText(ProgressTitle, MeasureJob::Title);
    dialog.SetText(ProgressStatus, "Please wait...");
    dialog.PBSetProgress(ProgressBar, 0);
    const auto channels = static_cast<std::size_t>(job.reader.format.channels);
    std::vector<double> block(MeasureJob::BlockFrames * channels);
    std::int64_t done = 0;
    while (const std::size_t frames = dialog.IsToStop() ? 0 : job.reader.Read(block)) {
        job.meter.Add(std::span(block).first(frames * channels));
        done += static_cast<std::int64_t>(frames);
        if (job.reader.length > 0)
            dialog.PBSetProgress(ProgressBar,
                                 static_cast<double>(done) / static_cast<double>(job.reader.length));
    }
    return dialog.IsToStop() ? LProcessResult::Stopped : LProcessResult::Completed;
}
