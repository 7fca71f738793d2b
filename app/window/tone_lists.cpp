#include "app/window/tone_lists.h"

#include "app/list_editor/list_dlg.h"
#include "app/list_editor/list_entries.h"
#include "app/setting_names.h"
#include "app/window/file_reports.h"
#include "app/window/tone_commands.h"
#include "app/window/tone_files.h"
#include "gui/file_chooser.h"
#include "sys/desktop/message_box.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_list_report.h"

#include <cerrno>

namespace {

constexpr LFileFilter LoadListFilters[] = {{"Tone list file", "*.tdl"}};
constexpr LFileFilter SaveListFilters[] = {{"Tone List", "*.tdl;"}, {"Wave File", "*.wav"}};

} // namespace

bool ToneLists::CmEditList(const std::string& path) {
    if (const std::string refusal = WhyNoListEntry(path); !refusal.empty()) {
        ReportUnreadable(path, refusal);
        return false;
    }
    edited.Begin(path);
    if (!OpenToneListDialog(window, edited) || edited.GetPath().empty())
        return false;
    SetListPath(tone, edited.GetPath());
    tone.waveform = ToneFromList;
    tone.flags |= ToneFlagDuration; // a list ends
    return true;
}

bool ToneLists::CmLoadList() {
    LFileChooser chooser{"Select Tone List to Open", edited.GetPath(), Setting::ListReadFolder.Get(),
                         LoadListFilters, "tdl"};
    const std::string path = LChooseFileToRead(window, chooser);
    if (path.empty())
        return false;
    Setting::ListReadFolder.Set(chooser.folder);
    if (GetExtension(path) != ".tdl")
        LShowMessageBox("Unrecognized File Type", "Not a tone list file", LMessageButtons::OkCancel);
    else if (!CmEditList(path))
        TakeLength(tone);
    return true;
}

bool ToneLists::CmSaveList() {
    const std::string list = tone.GetListPath();
    LFileChooser chooser{"Save Tone List to File", IsTemporaryList(list) ? "" : list,
                         Setting::ListSaveFolder.Get(), SaveListFilters, "tdl"};
    const std::string path = LChooseFileToSave(window, chooser);
    if (path.empty())
        return false;
    Setting::ListSaveFolder.Set(chooser.folder);
    if (GetExtension(path) == ".wav")
        return files.CmSaveWave(path);
    const bool copied = CopyList(list, path);
    if (copied)
        SetListPath(tone, path);
    return copied;
}

bool ToneLists::CopyList(const std::string& list, const std::string& path) {
    if (!IsList(tone)) {
        LShowMessageBox("Error", "The tone is no list, so there is none to save.");
        return false;
    }
    if (!WhyUnreadable(list.c_str()).empty()) {
        ReportUnreadable(list, {});
        return false;
    }
    std::string refusal = WhyNoListName(path);
    if (!IsSameFile(list, path) && IsReadByList(path, ExamineToneList(list)))
        refusal = "the list plays it";
    else if (refusal.empty() && !CopyListFile(list, path))
        refusal = ExplainError(errno);
    if (!refusal.empty())
        ReportUnwritten(path, refusal);
    return refusal.empty();
}
