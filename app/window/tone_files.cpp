#include "app/window/tone_files.h"

#include "app/file_kinds.h"
#include "app/list_report.h"
#include "app/setting_names.h"
#include "app/window/notices.h"
#include "app/window/saved_sound.h"
#include "app/window/time_text.h"
#include "app/window/tone_summary.h"
#include "gui/file_chooser.h"
#include "jobs/file_notices.h"
#include "sys/desktop/message_box.h"
#include "sys/path.h"
#include "tone/tone_level.h"

namespace {

void RememberFile(const std::string& path) {
    Setting::File.Set(path);
    Setting::FileFolder.Set(GetFolder(path));
}

/// Where the last tone file was.
LFileChooser MakeToneChooser(const char* title, std::vector<LFileFilter> filters) {
    return {title, Setting::File.Get(), Setting::FileFolder.Get(), std::move(filters), "tdf", GetFileKinds()};
}

/// "Saved sweep.wav in /home/ann: 10 s, peak -12.04 dBFS"
std::string DescribeSaved(const std::string& path, const std::string& length,
                          std::optional<double> peakDbfs) {
    return "Saved " + GetFileName(path) + " in " + GetFolder(path) + ": " + length +
           (peakDbfs ? ", peak " + FormatDbfs(*peakDbfs) : "");
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
    // Kept quirk: the wording.
    LFileChooser chooser = MakeToneChooser("Select Tone to Open", {{"Tone list file", "*.tdf"}});
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
    LFileChooser chooser = MakeToneChooser("Save As Tone", {{"Tone Data Files", "*.tdf"}});
    if (const std::string path = LChooseFileToSave(window, chooser); !path.empty())
        CmSaveTDF(path);
}

void ToneFiles::CmSave() {
    LFileChooser chooser =
        MakeToneChooser("Save tone as", AddHighQuality({{"Tone file", "*.tdf;"}, {"Wave file", "*.wav"}}));
    const std::string path = LChooseFileToSave(window, chooser);
    if (path.empty())
        return;
    if (HasExtension(path, ".tdf"))
        CmSaveTDF(path);
    else
        CmSaveSound(path);
}

void ToneFiles::CmSaveAsWav() {
    if (!tone.IsFinite()) {
        CmSaveSound({}); // which says why not
        return;
    }
    LFileChooser chooser{
        "Save As Wav File", "", Setting::FileFolder.Get(), AddHighQuality({{"Wave Files", "*.wav"}}), "wav",
        GetFileKinds()};
    if (const std::string path = LChooseFileToSave(window, chooser); !path.empty())
        CmSaveSound(path);
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
    tellSaved(DescribeSaved(path, FormatLength(ExamineList(path).Measure()), {}));
}

void ToneFiles::CmSaveSound(const std::string& path) {
    if (!tone.IsFinite()) {
        LShowMessageBox(
            "No Duration Specified",
            "Tones can only be saved as wav files if they are a fixed duration tone.\r\n\r\nSelect "
            "the Constant (Specified Duration) or Sweep items, or turn of loop play, from the Tones "
            "menu.");
        return;
    }
    Setting::FileFolder.Set(GetFolder(path));
    const SavedSound saved = SaveSound(window, tone, path);
    const RenderOutcome& outcome = saved.outcome;
    if (outcome.result == LProcessResult::Completed)
        tellSaved(DescribeSaved(path, FormatLength(saved.ms), saved.peakDbfs) +
                  (saved.quality.empty() ? "" : ", " + saved.quality));
    for (const LFileWarning& warning : outcome.warnings)
        ShowNotice(DescribeFailed(warning.file, warning.reason));
    if (outcome.failure && outcome.ofTheOutput)
        ShowNotice(DescribeFailed(path, outcome.failure));
    else if (outcome.failure)
        ShowNotice({"Error", "The tone can't be saved: it " + outcome.failure.GetReason() + "."});
}
