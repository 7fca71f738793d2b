#include "app/window/tone_files.h"

#include "app/file_kinds.h"
#include "app/setting_names.h"
#include "app/window/notices.h"
#include "app/window/time_text.h"
#include "app/window/tone_summary.h"
#include "gui/file_chooser.h"
#include "gui/process_dialog.h"
#include "jobs/file_notices.h"
#include "jobs/render_file.h"
#include "sound/peak_sink.h"
#include "sys/desktop/message_box.h"
#include "sys/path.h"
#include "tone/tone_level.h"
#include "tone/tone_list_report.h"

#include <cmath>
#include <span>

namespace {

// Kept quirk: the wording of the first one.
constexpr LFileFilter LoadToneFilters[] = {{"Tone list file", "*.tdf"}};
constexpr LFileFilter SaveToneFilters[] = {{"Tone Data Files", "*.tdf"}};
constexpr LFileFilter SaveFilters[] = {{"Tone file", "*.tdf;"}, {"Wave file", "*.wav"}};
constexpr LFileFilter WaveFilters[] = {{"Wave Files", "*.wav"}};

void RememberFile(const std::string& path) {
    Setting::File.Set(path);
    Setting::FileFolder.Set(GetFolder(path));
}

/// Where the last tone file was.
LFileChooser MakeToneChooser(const char* title, std::span<const LFileFilter> filters) {
    return {title, Setting::File.Get(), Setting::FileFolder.Get(), filters, "tdf", FileKinds};
}

/// Tells what of a list will not sound as its user expects; false where that is reason enough to leave it.
bool ConfirmProblems(const std::vector<LFileWarning>& warnings) {
    return LShowMessageBox("Save List",
                           "Not all of the list can be saved as it should sound:" + ListWarnings(warnings),
                           LMessageButtons::OkCancel) == LMessageAnswer::Ok;
}

/// "Saved sweep.wav in /home/ann: 10 s, peak -12.04 dBFS"
std::string DescribeSaved(const std::string& path, const std::string& length,
                          std::optional<double> peakDbfs) {
    return "Saved " + GetFileName(path) + " in " + GetFolder(path) + ": " + length +
           (peakDbfs ? ", peak " + FormatDbfs(*peakDbfs) : "");
}

/// Runs the job under a progress dialog, and measures what it writes.
LProcessResult RunJob(LWindow& parent, const LPRSourceToSink& job, SinkMeasure& measure) {
    LPRSourceToSink measured(job.title, job.source, LSoundSink::Make<LPeakSink>(job.sink, measure));
    LProcessDialog<LPRSourceToSink> dialog(job.title, measured);
    dialog.Open(parent);
    return dialog.GetResult();
}

} // namespace

std::optional<LNotice> ToneFiles::LoadDocument(const std::string& path) {
    RememberFile(path);
    if (HasExtension(path, ".tdf"))
        return Read(path, path);
    return LNotice{"Unrecognized File Type", "Unrecognized tone file type.", true};
}

void ToneFiles::LoadNamed(const std::string& path, const std::string& fullPath) {
    if (const auto unread = Read(path, fullPath))
        ShowNotice(*unread);
    else
        RememberFile(fullPath);
}

std::optional<LNotice> ToneFiles::Read(const std::string& path, const std::string& fullPath) {
    SonvireData read;
    if (const LFailure failure = read.ReadFromFile(path.c_str()))
        return DescribeUnreadable(path, failure);
    tone = read;
    document = std::make_shared<ToneDocument>(fullPath, read);
    return {};
}

bool ToneFiles::CmLoadTDF() {
    LFileChooser chooser = MakeToneChooser("Select Tone to Open", LoadToneFilters);
    const std::string path = LChooseFileToRead(window, chooser);
    if (path.empty())
        return false;
    if (const auto notice = LoadDocument(path))
        ShowNotice(*notice);
    return true;
}

void ToneFiles::CmSaveAsTDF() {
    if (tone.IsList()) {
        LShowMessageBox("Error", "Tone of list type should not be save as a tone file. Instead, save it as a "
                                 "tone list file by selecting \"Save List\" on the menu");
        return;
    }
    LFileChooser chooser = MakeToneChooser("Save As Tone", SaveToneFilters);
    if (const std::string path = LChooseFileToSave(window, chooser); !path.empty())
        CmSaveTDF(path);
}

void ToneFiles::CmSave() {
    LFileChooser chooser = MakeToneChooser("Save tone as", SaveFilters);
    const std::string path = LChooseFileToSave(window, chooser);
    if (path.empty())
        return;
    if (HasExtension(path, ".tdf"))
        CmSaveTDF(path);
    else
        CmSaveWave(path);
}

void ToneFiles::CmSaveAsWav() {
    if (!tone.IsFinite()) {
        CmSaveWave({}); // which says why not
        return;
    }
    LFileChooser chooser{"Save As Wav File", "", Setting::FileFolder.Get(), WaveFilters, "wav", FileKinds};
    if (const std::string path = LChooseFileToSave(window, chooser); !path.empty())
        CmSaveWave(path);
}

void ToneFiles::CmSaveTDF(const std::string& path) {
    RememberFile(path);
    if (const LFailure failure = tone.WriteToFile(path.c_str())) {
        ShowNotice(DescribeUnwritten(path, failure));
        return;
    }
    document->MoveTo(path, tone);
    tellSaved(DescribeSaved(path, DescribeLength(tone), GetHighestPeakDbfs(tone)));
}

void ToneFiles::TellSavedList(const std::string& path) {
    tellSaved(DescribeSaved(path, FormatLength(ExamineToneList(path).Measure()), {}));
}

void ToneFiles::CmSaveWave(const std::string& path) {
    if (!tone.IsFinite()) {
        LShowMessageBox(
            "No Duration Specified",
            "Tones can only be saved as wav files if they are a fixed duration tone.\r\n\r\nSelect "
            "the Constant (Specified Duration) or Sweep items, or turn of loop play, from the Tones "
            "menu.");
        return;
    }
    Setting::FileFolder.Set(GetFolder(path));
    const SoundInput input = OpenToneInput(tone, SoundLength::Finite);
    SinkMeasure measure;
    const RenderOutcome outcome = RenderToFile(
        input, {.path = path},
        {.confirm = ConfirmProblems, .run = [&](auto& job) { return RunJob(window, job, measure); }});
    if (outcome.result == LProcessResult::Completed) {
        const double seconds = static_cast<double>(measure.frames) / input.source->sampleRate;
        tellSaved(
            DescribeSaved(path, FormatLength(std::llround(1000 * seconds)), GetSamplePeakDbfs(measure.peak)));
    }
    if (outcome.failure && outcome.ofTheOutput)
        ShowNotice(DescribeFailed(path, outcome.failure));
    else if (outcome.failure)
        ShowNotice({"Error", "The tone can't be saved: it " + outcome.failure.GetReason() + "."});
}
