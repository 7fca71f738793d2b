#include "app/file_extension.h"
#include "app/main_dialog.h"
#include "app/tone_commands.h"
#include "gui/file_chooser.h"
#include "gui/process_dialog.h"
#include "sound/render_job.h"
#include "sound/wave_file.h"
#include "sys/message_box.h"
#include "sys/replaced_file.h"
#include "sys/settings.h"
#include "tone/tone_engine.h"

#include <cstring>

namespace {

// The wording of the first one is meant.
constexpr LFileFilter LoadToneFilters[] = {{"Tone list file", "*.tdf"}};
constexpr LFileFilter SaveToneFilters[] = {{"Tone Data Files", "*.tdf"}};
constexpr LFileFilter SaveFilters[] = {{"Tone file", "*.tdf;"}, {"Wave file", "*.wav"}};
constexpr LFileFilter WaveFilters[] = {{"Wave Files", "*.wav"}};

std::string ReadText(const char* key) {
    std::string text;
    LUserSettingGetString("settings", key, "", text);
    return text;
}

/// Where the last tone file was.
LFileChooser MakeToneChooser(const char* title, std::span<const LFileFilter> filters) {
    return {title, ReadText("file"), ReadText("filedir"), filters, "tdf"};
}

void ReportUnwritten(const std::string& path, const std::string& reason) {
    LShowMessageBox("Error", "The file \"" + path + "\" can't be written: " + reason + ".");
}

/// Writes the whole sound or nothing: a file that was there before stays as it was until then.
void Render(LWindow& parent, const LSoundSource& source, const std::string& path) {
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
        ReportUnwritten(path, std::strerror(sink->writeError));
    else if (dialog.GetResult() == LProcessResult::Completed && !file.Commit())
        ReportUnwritten(path, file.GetError());
}

} // namespace

void MainDialog::CmLoadTDF() {
    LFileChooser chooser = MakeToneChooser("Select Tone to Open", LoadToneFilters);
    if (const std::string path = LChooseFileToRead(*this, chooser); !path.empty())
        CmLoadFile(path.c_str());
}

void MainDialog::CmSaveAsTDF() {
    if (IsList(tone)) {
        LShowMessageBox("Error", "Tone of list type should not be save as a tone file. Instead, save it as a "
                                 "tone list file by selecting \"Save List\" on the menu");
        return;
    }
    LFileChooser chooser = MakeToneChooser("Save As Tone", SaveToneFilters);
    if (const std::string path = LChooseFileToSave(*this, chooser); !path.empty())
        SaveTone(path);
}

void MainDialog::CmSave() {
    if (IsList(tone))
        return;
    LFileChooser chooser = MakeToneChooser("Save tone as", SaveFilters);
    const std::string path = LChooseFileToSave(*this, chooser);
    if (path.empty())
        return;
    if (GetFileExtension(path) == ".tdf")
        SaveTone(path);
    else
        SaveWave(path);
}

void MainDialog::CmSaveAsWav() {
    if (!tone.IsFinite()) {
        SaveWave({}); // which says why not
        return;
    }
    LFileChooser chooser{"Save As Wav File", "", ReadText("filedir"), WaveFilters, "wav"};
    if (const std::string path = LChooseFileToSave(*this, chooser); !path.empty())
        SaveWave(path);
}

void MainDialog::SaveTone(const std::string& path) {
    LUserSettingSetString("settings", "file", path);
    LUserSettingSetString("settings", "filedir", GetFolder(path));
    if (!tone.WriteToFile(path.c_str()))
        ReportUnwritten(path, std::strerror(errno));
}

void MainDialog::SaveWave(const std::string& path) {
    if (!tone.IsFinite()) {
        LShowMessageBox(
            "No Duration Specified",
            "Tones can only be saved as wav files if they are a fixed duration tone.\r\n\r\nSelect "
            "the Constant (Specified Duration) or Sweep items, or turn of loop play, from the Tones "
            "menu.");
        return;
    }
    LUserSettingSetString("settings", "filedir", GetFolder(path));
    Render(*this, OpenToneEngine(tone), path);
}

/// Makes the list at `listPath` the current tone.
void MainDialog::CmEditList() {
    LUserSettingSetString("tonelist", "editlist", tone.GetListPath());
    tone.waveform = ToneFromList;
    tone.flags |= ToneFlagDuration;
    RelistandStart();
}
