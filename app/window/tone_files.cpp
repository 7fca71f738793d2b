#include "app/window/tone_files.h"

#include "app/list_editor/list_entries.h"
#include "app/setting_names.h"
#include "app/window/file_reports.h"
#include "app/window/tone_commands.h"
#include "gui/file_chooser.h"
#include "gui/process_dialog.h"
#include "sound/files/wave_file.h"
#include "sound/render_job.h"
#include "sys/desktop/message_box.h"
#include "sys/file.h"
#include "sys/path.h"
#include "sys/replaced_file.h"
#include "tone/tone_engine.h"
#include "tone/tone_list_report.h"

#include <cerrno>

namespace {

// The wording of the first one is meant.
constexpr LFileFilter LoadToneFilters[] = {{"Tone list file", "*.tdf"}};
constexpr LFileFilter SaveToneFilters[] = {{"Tone Data Files", "*.tdf"}};
constexpr LFileFilter SaveFilters[] = {{"Tone file", "*.tdf;"}, {"Wave file", "*.wav"}};
constexpr int MostProblemsShown = 8;

constexpr LFileFilter WaveFilters[] = {{"Wave Files", "*.wav"}};

void RememberFile(const std::string& path) {
    Setting::File.Set(path);
    Setting::FileFolder.Set(GetFolder(path));
}

/// Where the last tone file was.
LFileChooser MakeToneChooser(const char* title, std::span<const LFileFilter> filters) {
    return {title, Setting::File.Get(), Setting::FileFolder.Get(), filters, "tdf"};
}

/// Why the sound is none that can be saved; empty where it is.
std::string WhyNotSaved(const SonvireData& tone, const LSoundSource& source, const ToneListReport& report) {
    if (const std::string reason = tone.WhyUncountable(); !IsList(tone) && !reason.empty())
        return reason;
    const double frames = IsList(tone)
                              ? static_cast<double>(report.CountMilliseconds()) * source->sampleRate / 1000
                              : source->GetEndSample();
    return LWaveFile::WhyTooLong(frames, source->channels, 16);
}

/// Tells what of a list will not sound as its user expects; false where that is reason enough to leave it.
bool ConfirmProblems(const ToneListReport& report) {
    std::string told;
    int count = 0;
    for (const ToneListEntry& entry : report.entries)
        if (!entry.problem.empty() && ++count <= MostProblemsShown)
            told += "\n\n\"" + entry.file + "\" " + entry.problem;
    if (count > MostProblemsShown)
        told += "\n\nand " + std::to_string(count - MostProblemsShown) + " more";
    return count == 0 ||
           LShowMessageBox("Save List", "Not all of the list can be saved as it should sound:" + told,
                           LMessageButtons::OkCancel) == LMessageAnswer::Ok;
}

/// A file that was there before, which the source may read, stays as it was until the new one is whole. What
/// the user has stopped is kept as far as it got where there was no file.
void Render(LWindow& parent, const LSoundSource& source, const std::string& path) {
    const bool replaces = FileExists(path);
    LReplacedFile file(path);
    if (!file.GetError().empty()) {
        ReportUnwritten(path, file.GetError());
        return;
    }
    const LSoundSink sink =
        LWaveFile::OpenSinkPCM(file.GetPathToWrite().c_str(), source->sampleRate, source->channels, 16, 0);
    LPRSourceToSink job("Saving Wave File", source, sink);
    LProcessDialog<LPRSourceToSink> dialog(job.title, job);
    dialog.Open(parent);
    sink->Finish();
    if ((sink->status & (SinkUnusable | SinkFellShort)) != 0)
        ReportUnwritten(path, ExplainError(sink->writeError));
    else if (dialog.GetResult() == LProcessResult::Failed)
        ReportUnwritten(path, "the tone gives no sound");
    else if (dialog.GetResult() == LProcessResult::Stopped && replaces)
        return;
    else if (!file.Commit())
        ReportUnwritten(path, file.GetError());
}

} // namespace

void ToneFiles::LoadDocument(const std::string& path) {
    RememberFile(path);
    if (GetExtension(path) == ".tdf")
        Read(path);
    else
        LShowMessageBox("Unrecognized File Type", "Unrecognized tone file type.", LMessageButtons::OkCancel);
}

void ToneFiles::LoadNamed(const std::string& path, const std::string& fullPath) {
    if (Read(path))
        RememberFile(fullPath);
}

bool ToneFiles::Read(const std::string& path) {
    SonvireData read;
    const bool whole = ReadToneFile(read, path);
    if (whole)
        tone = read;
    return whole;
}

bool ToneFiles::CmLoadTDF() {
    LFileChooser chooser = MakeToneChooser("Select Tone to Open", LoadToneFilters);
    const std::string path = LChooseFileToRead(window, chooser);
    if (!path.empty())
        LoadDocument(path);
    return !path.empty();
}

void ToneFiles::CmSaveAsTDF() {
    if (IsList(tone)) {
        LShowMessageBox("Error", "Tone of list type should not be save as a tone file. Instead, save it as a "
                                 "tone list file by selecting \"Save List\" on the menu");
        return;
    }
    LFileChooser chooser = MakeToneChooser("Save As Tone", SaveToneFilters);
    if (const std::string path = LChooseFileToSave(window, chooser); !path.empty())
        CmSaveTDF(path);
}

bool ToneFiles::CmSave() {
    LFileChooser chooser = MakeToneChooser("Save tone as", SaveFilters);
    const std::string path = LChooseFileToSave(window, chooser);
    if (path.empty())
        return false;
    if (GetExtension(path) != ".tdf")
        return CmSaveWave(path);
    CmSaveTDF(path);
    return false;
}

bool ToneFiles::CmSaveAsWav() {
    if (!tone.IsFinite())
        return CmSaveWave({}); // which says why not
    LFileChooser chooser{"Save As Wav File", "", Setting::FileFolder.Get(), WaveFilters, "wav"};
    const std::string path = LChooseFileToSave(window, chooser);
    return !path.empty() && CmSaveWave(path);
}

void ToneFiles::CmSaveTDF(const std::string& path) {
    RememberFile(path);
    if (!tone.WriteToFile(path.c_str()))
        ReportUnwritten(path, ExplainError(errno));
}

bool ToneFiles::CmSaveWave(const std::string& path) {
    if (!tone.IsFinite()) {
        LShowMessageBox(
            "No Duration Specified",
            "Tones can only be saved as wav files if they are a fixed duration tone.\r\n\r\nSelect "
            "the Constant (Specified Duration) or Sweep items, or turn of loop play, from the Tones "
            "menu.");
        return false;
    }
    Setting::FileFolder.Set(GetFolder(path));
    ToneListReport report;
    const LSoundSource source = OpenToneEngine(tone, &report);
    if (const std::string reason = WhyNotSaved(tone, source, report); !reason.empty()) {
        LShowMessageBox("Error", "The tone can't be saved: it " + reason + ".");
        return false;
    }
    if (!ConfirmProblems(report))
        return false;
    const bool replacesItsOwn = IsReadByList(path, report);
    Render(window, source, path);
    return replacesItsOwn;
}
