#include "app/file_kinds.h"
#include "app/list_editor/list_dlg.h"
#include "app/setting_names.h"
#include "app/window/notices.h"
#include "gui/file_chooser.h"
#include "gui/toolkit.h"
#include "jobs/file_notices.h"
#include "jobs/tone_lists.h"
#include "sys/desktop/message_box.h"
#include "sys/path.h"
#include "tone/tone_list_file.h"

#include <algorithm>
#include <unistd.h>

namespace {

bool MayReplaceChanged(const std::string& path) {
    return LShowMessageBox("Replace File?",
                           "The file \"" + path +
                               "\" has been changed by another program since it was opened. Do you want to "
                               "replace it?",
                           LMessageButtons::NoYes) == LMessageAnswer::Yes;
}

} // namespace

bool ListDlg::CmSaveList() {
    if (edited.IsUntitled())
        return CmSaveAs();
    const std::string& path = edited.GetPath();
    return !modified || ((!edited.HasChanged() || MayReplaceChanged(path)) && SaveTo(path));
}

bool ListDlg::CmSaveAs() {
    LFileChooser chooser{"Save tone list as",
                         edited.IsUntitled() ? "" : edited.GetPath(),
                         Setting::ListSaveFolder.Get(),
                         {{"Tone list file", "*.tdl"}},
                         "tdl",
                         GetFileKinds()};
    const std::string path = LChooseFileToSave(*this, chooser);
    if (path.empty())
        return false;
    Setting::ListSaveFolder.Set(chooser.folder);
    return SaveTo(path);
}

/// What was named relative to the list stays so where the list does not move.
std::vector<std::string> ListDlg::GetLines(const std::string& folder) const {
    std::vector<std::string> lines = rows->GetEntries();
    for (std::string& line : lines)
        if (const auto found = written.find(line); folder == openedIn && found != written.end())
            line = found->second;
    return lines;
}

bool ListDlg::SaveTo(const std::string& path) {
    const std::vector<std::string> entries = rows->GetEntries();
    LFailure failure = CheckListEntry(path);
    if (std::any_of(entries.begin(), entries.end(),
                    [&path](const std::string& entry) { return IsSameFile(entry, path); }))
        failure = "it is an entry of the list";
    else if (!failure)
        failure = WriteToneListFile(path.c_str(), GetLines(GetFolder(path)));
    if (failure) {
        ShowNotice(DescribeUnwritten(path, failure));
        return false;
    }
    edited.SaveTo(path);
    rows->SetSaved();
    Follow(false);
    return true;
}

/// So that the list plays as it was edited, whatever becomes of its file.
bool ListDlg::SaveToTemporary() {
    std::string path;
    LFailure failure = CreateTemporaryList(path);
    if (!failure)
        failure = WriteToneListFile(path.c_str(), rows->GetEntries());
    if (failure) {
        ShowNotice(path.empty() ? DescribeNoTemporary(failure) : DescribeUnwritten(path, failure));
        unlink(path.c_str());
        return false;
    }
    edited.MoveTo(path);
    return true;
}

/// False where the changes would be lost. A list that the user would save after all but could not is kept
/// like one that is not to be saved.
bool ListDlg::KeepChanges() {
    const LMessageAnswer answer =
        LShowMessageBox("Tone List", "Tone list modified. Do you want to save it?", LMessageButtons::YesNo);
    return (answer == LMessageAnswer::Yes && CmSaveList()) || SaveToTemporary();
}

/// At the end of the session there is nobody to ask: the draft keeps the rows.
bool ListDlg::MayDropChanges() {
    if (!modified || GetToolkit().IsSessionEnding())
        return true;
    const LMessageAnswer answer = LShowMessageBox(
        "Tone List", "Tone list modified. Do you want to save it?\n\nWith No, what was changed is lost.",
        LMessageButtons::YesNoCancel);
    return answer == LMessageAnswer::No || (answer == LMessageAnswer::Yes && CmSaveList());
}
