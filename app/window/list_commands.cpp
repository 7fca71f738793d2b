#include "app/list_editor/edited_list.h"
#include "app/list_editor/list_dlg.h"
#include "app/window/main_dialog.h"
#include "app/window/notices.h"
#include "app/window/tone_commands.h"
#include "gui/file_chooser.h"
#include "jobs/file_notices.h"
#include "jobs/tone_lists.h"
#include "sys/desktop/message_box.h"
#include "sys/desktop/settings.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_list_report.h"

namespace {

constexpr LFileFilter LoadListFilters[] = {{"Tone list file", "*.tdl"}};
constexpr LFileFilter SaveListFilters[] = {{"Tone List", "*.tdl;"}, {"Wave File", "*.wav"}};

} // namespace

/// Lets the user edit the list at `path`, a new one where it is empty. True where it is the current tone
/// afterwards.
bool MainDialog::EditList(const std::string& path) {
    if (const LFailure refusal = CheckListEntry(path)) {
        ShowNotice(DescribeUnreadable(path, refusal));
        return false;
    }
    SetEditedList(path);
    if (!OpenToneListDialog(*this))
        return false;
    const std::string edited = GetEditedList();
    if (edited.empty())
        return false;
    SetListPath(tone, edited);
    tone.waveform = ToneFromList;
    tone.flags |= ToneFlagDuration; // a list ends
    return true;
}

void MainDialog::CmCreateList() {
    if (EditList({}))
        RelistandStart();
}

void MainDialog::CmEditList(const std::string& path) {
    if (EditList(path))
        RelistandStart();
}

void MainDialog::CmLoadList() {
    LFileChooser chooser{"Select Tone List to Open", GetEditedList(),
                         LUserSettingGetText("tonelist", "readfolder"), LoadListFilters, "tdl"};
    const std::string path = LChooseFileToRead(*this, chooser);
    if (path.empty()) {
        EnableControls(); // the item was pressed, and the tone is no list for that
        return;
    }
    LUserSettingSetString("tonelist", "readfolder", chooser.folder);
    if (GetExtension(path) != ".tdl")
        LShowMessageBox("Unrecognized File Type", "Not a tone list file", LMessageButtons::OkCancel);
    else if (!EditList(path))
        TakeLength();
    RelistandStart();
}

void MainDialog::CmSaveList() {
    const std::string list = tone.GetListPath();
    LFileChooser chooser{"Save Tone List to File", IsTemporaryList(list) ? "" : list,
                         LUserSettingGetText("tonelist", "savefolder"), SaveListFilters, "tdl"};
    const std::string path = LChooseFileToSave(*this, chooser);
    if (path.empty())
        return;
    LUserSettingSetString("tonelist", "savefolder", chooser.folder);
    if (GetExtension(path) == ".wav") {
        CmSaveWave(path);
    } else if (CopyList(list, path)) {
        SetListPath(tone, path);
        RelistandStart();
    }
}

bool MainDialog::CopyList(const std::string& list, const std::string& path) {
    if (!IsList(tone)) {
        LShowMessageBox("Error", "The tone is no list, so there is none to save.");
        return false;
    }
    if (const LFailure unreadable = CheckReadable(list)) {
        ShowNotice(DescribeUnreadable(list, unreadable));
        return false;
    }
    LFailure failure = CheckListName(path);
    if (!IsSameFile(list, path) && IsReadByList(path, ExamineToneList(list)))
        failure = "the list plays it";
    else if (!failure)
        failure = CopyListFile(list, path);
    if (failure)
        ShowNotice(DescribeUnwritten(path, failure));
    return !failure;
}
