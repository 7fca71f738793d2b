#pragma once

#include "hires/hires_sink.h"
#include "hires/hires_source.h"
#include "sound/sound_source.h"
#include "sys/process_result.h"

#include <algorithm>
#include <cerrno>
#include <vector>

/// The job of copying a source of the high-resolution engine, which has an end, into a sink. Owns neither.
struct HiresRenderJob {
    static constexpr const char* Title = "Saving Sound File";

    HiresSource& source;
    HiresSink& sink;
    LFailure failure{}; ///< of a write
};

/// Runs the job on the calling thread in blocks, asking between them whether to stop. A write
/// that the user's own stop broke off is a stop; a stopped job leaves what was written so far. What
/// `ProgressDialog` has is told in sound/render_job.h.
template <class ProgressDialog>
LProcessResult Process(ProgressDialog& dialog, HiresRenderJob& job) {
    dialog.SetText(ProgressTitle, HiresRenderJob::Title);
    dialog.SetText(ProgressStatus, "Please wait...");
    dialog.PBSetProgress(ProgressBar, 0);
    const std::int64_t length = job.source.GetLength();
    std::vector<std::int32_t> block(static_cast<std::size_t>(job.source.channels) * HiresSink::BlockFrames);
    for (std::int64_t done = 0; done < length;) {
        if (dialog.IsToStop())
            return LProcessResult::Stopped;
        const auto frames = static_cast<int>(std::min<std::int64_t>(length - done, HiresSink::BlockFrames));
        job.source.Read(block.data(), frames);
        job.failure = job.sink.Write(block.data(), frames);
        if (job.failure)
            return job.failure.GetError() == EINTR && dialog.IsToStop() ? LProcessResult::Stopped
                                                                        : LProcessResult::Failed;
        done += frames;
        dialog.PBSetProgress(ProgressBar, static_cast<double>(done) / static_cast<double>(length));
    }
    return LProcessResult::Completed;
}
