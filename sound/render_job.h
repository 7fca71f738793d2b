#pragma once

#include "sound/sound_sink.h"
#include "sound/stages/convert_rate.h"
#include "sound/stages/peak_limit.h"
#include "sys/process_result.h"

#include <algorithm>
#include <cerrno>
#include <vector>

/// The job of copying a finite source into a sink. Shares both; releasing the job releases the sink, which
/// finishes a WAVE file's header.
struct LPRSourceToSink {
    LPRSourceToSink(const char* jobTitle, const LSoundSource& from, const LSoundSink& to)
        : title(jobTitle),
          source(from),
          sink(to) {}

    const char* title; ///< not owned
    LSoundSource source;
    LSoundSink sink;
};

/// The source as a sink of this rate, channel count and peak takes it: converted, then limited, of which
/// `told` hears.
inline LSoundSource OpenSourceForSink(LSoundSource source, int rate, std::uint8_t channels, int peakLimit,
                                      std::shared_ptr<LLimiterNews> told = nullptr) {
    LSPConvertSourceRateChannels(rate, channels, source);
    return LSPPeakLimit(peakLimit, std::move(told)).OpenSource(source);
}

/// A write that the user's own stop broke off is a stop.
template <class ProgressDialog>
LProcessResult ExplainShortWrite(ProgressDialog& dialog, const LSoundSinkBase& sink) {
    const bool interrupted = sink.failure.GetError() == EINTR && dialog.IsToStop();
    return interrupted ? LProcessResult::Stopped : LProcessResult::Failed;
}

/// Runs the job on the calling thread in blocks of 8192 frames, asking between them whether to stop. A source
/// or sink with a status fails without anything being read or written, and a sink that takes no more fails at
/// once; a stopped job leaves what was written so far.
///
/// `ProgressDialog` has `SetText(int control, const char*)`, `PBSetProgress(int control, double fraction)`
/// and `bool IsToStop()`.
template <class ProgressDialog>
LProcessResult Process(ProgressDialog& dialog, LPRSourceToSink& job) {
    dialog.SetText(ProgressTitle, job.title);
    dialog.SetText(ProgressStatus, "Please wait...");
    dialog.PBSetProgress(ProgressBar, 0);
    LSoundSink sink = job.sink;
    if (job.source->status != SoundUsable || (sink->status & SinkUnusable) != 0)
        return LProcessResult::Failed;

    const LSoundSource source =
        OpenSourceForSink(job.source, sink->sampleRate, sink->channels, sink->peakLimit);
    int remaining = WrapSubtract(source->GetEndSample(), source->GetPositionSample());
    const double step = remaining > 0 ? static_cast<double>(MaxBlockFrames) / remaining : 0;
    // A layout that nothing converts is written as silence.
    const bool readable = source->channels == sink->channels;
    std::vector<int> block(std::size_t{sink->channels} * MaxBlockFrames);
    for (double progress = 0; remaining > 0; progress += step) {
        if (dialog.IsToStop())
            return LProcessResult::Stopped;
        const int frames = std::min(remaining, MaxBlockFrames);
        remaining -= frames;
        if (readable)
            source->Read(block.data(), frames);
        sink->Write(block.data(), frames);
        if (sink->status != 0)
            return ExplainShortWrite(dialog, *sink);
        // Kept quirk: the bar is one block behind and never full.
        dialog.PBSetProgress(ProgressBar, progress);
    }
    return LProcessResult::Completed;
}
