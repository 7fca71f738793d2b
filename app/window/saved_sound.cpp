#include "app/window/saved_sound.h"

#include "app/desktop/product.h"
#include "app/quality.h"
#include "gui/format_fixed.h"
#include "gui/process_dialog.h"
#include "hires/peak_sink.h"
#include "jobs/file_notices.h"
#include "jobs/render_file.h"
#include "jobs/render_hires.h"
#include "sound/decibels.h"
#include "sound/peak_sink.h"
#include "sys/desktop/message_box.h"
#include "tone/tone_level.h"

namespace {

/// Tells what of a list will not sound as its user expects; false where that is reason enough to leave it.
bool ConfirmProblems(const std::vector<LFileWarning>& warnings) {
    return LShowMessageBox("Save List",
                           "Not all of the list can be saved as it should sound:" + ListWarnings(warnings),
                           LMessageButtons::OkCancel) == LMessageAnswer::Ok;
}

template <class Job>
LProcessResult RunJob(LWindow& parent, const char* title, Job& job) {
    LProcessDialog<Job> dialog(title, job);
    dialog.Open(parent);
    return dialog.GetResult();
}

std::int64_t ToMilliseconds(std::int64_t frames, int rate) {
    return std::llround(1000.0 * static_cast<double>(frames) / rate);
}

SavedSound SaveStandard(LWindow& parent, const SonvireData& tone, const std::string& path) {
    const SoundInput input = OpenToneInput(tone, SoundLength::Finite);
    SinkMeasure measure;
    const auto run = [&](const LPRSourceToSink& job) {
        LPRSourceToSink measured(job.title, job.source, LSoundSink::Make<LPeakSink>(job.sink, measure));
        return RunJob(parent, job.title, measured);
    };
    SavedSound saved{RenderToFile(input, {.path = path}, {.confirm = ConfirmProblems, .run = run})};
    if (saved.outcome.result != LProcessResult::Completed)
        return saved;
    saved.ms = ToMilliseconds(measure.frames, input.source->sampleRate);
    saved.peakDbfs = GetSamplePeakDbfs(measure.peak);
    return saved;
}

std::string DescribeQuality(const HiresInput& input) {
    return DescribeRate(input.source->rate) + ", 24 bits" +
           (input.loweredDb >= 0.005 ? ", lowered by " + FormatFixed(input.loweredDb, 2) + " dB" : "");
}

SavedSound SaveHigh(LWindow& parent, const SonvireData& tone, const std::string& path, int rate) {
    HiresInput input = OpenHiresToneInput(tone, {.settings = {.rate = rate, .fit = true}});
    std::optional<double> peakDbfs;
    const auto run = [&](HiresRenderJob& job) {
        HiresPeakSink sink(job.sink, job.source.channels);
        HiresRenderJob measured{.source = job.source, .sink = sink};
        const LProcessResult result = RunJob(parent, HiresRenderJob::Title, measured);
        job.failure = measured.failure;
        if (sink.GetPeak() > 0)
            peakDbfs = ToDecibels(static_cast<double>(sink.GetPeak()) * 0x1p-31);
        return result;
    };
    SavedSound saved{RenderHiresToFile(input, {.path = path, .program = ProductAndVersion},
                                       {.confirm = ConfirmProblems, .run = run})};
    if (saved.outcome.result != LProcessResult::Completed)
        return saved;
    saved.ms = ToMilliseconds(input.source->GetLength(), input.source->rate);
    saved.peakDbfs = peakDbfs;
    saved.quality = DescribeQuality(input);
    return saved;
}

} // namespace

SavedSound SaveSound(LWindow& parent, const SonvireData& tone, const std::string& path) {
    const HiresFileKind* kind = HiresFileKind::Find(path);
    const bool isWave = !kind || kind->container == HiresFileKind::Container::Wave;
    const Quality& quality = GetQuality();
    if (isWave && !quality.IsHigh())
        return SaveStandard(parent, tone, path);
    return SaveHigh(parent, tone, path, quality.IsHigh() ? quality.savedRate : HiresSettings{}.rate);
}
