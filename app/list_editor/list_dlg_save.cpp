#include "app/list_editor/edited_list.h"
#include "app/list_editor/list_dlg.h"
#include "app/list_editor/list_entries.h"
#include "app/window/file_reports.h"
#include "gui/file_chooser.h"
#include "sys/desktop/message_box.h"
#include "sys/desktop/settings.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_list_file.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace {

constexpr LFileFilter SaveListFilters[] = {{"Tone list file", "*.tdl"}};

} // namespace

bool ListDlg::CmSaveList() {
    if (untitled)
        return CmSaveAs();
    return !modified || SaveTo(file);
}

bool ListDlg::CmSaveAs() {
    LFileChooser chooser{"Save tone list as", untitled ? "" : file,
                         LUserSettingGetText("tonelist", "savefolder"), SaveListFilters, "tdl"};
    const std::string path = LChooseFileToSave(*this, chooser);
    if (path.empty())
        return false;
    LUserSettingSetString("tonelist", "savefolder", chooser.folder);
    return SaveTo(path);
}

bool ListDlg::SaveTo(const std::string& path) {
    const std::vector<std::string> entries = GetEntries();
    std::string refusal = WhyNoListName(path);
    if (std::any_of(entries.begin(), entries.end(),
                    [&path](const std::string& entry) { return IsSameFile(entry, path); }))
        refusal = "it is an entry of the list";
    else if (refusal.empty() && !WriteToneListFile(path.c_str(), entries))
        refusal = ExplainError(errno);
    if (!refusal.empty()) {
        ReportUnwritten(path, refusal);
        return false;
    }
    SetEditedList(file = path);
    modified = false;
    untitled = untitled && GetExtension(path) != ".tdl";
    return true;
}

/// So that the list plays as it was edited, whatever becomes of its file.
bool ListDlg::SaveToTemporary() {
    const std::string path = CreateTemporaryList();
    if (path.empty() || !WriteToneListFile(path.c_str(), GetEntries())) {
        ReportUnwritten(path.empty() ? "/var/tmp" : path, ExplainError(errno));
        unlink(path.c_str());
        return false;
    }
    file = path;
    return true;
}

/// False where the changes would be lost. A list that the user would save after all but could not is kept
/// like one that is not to be saved.
bool ListDlg::KeepChanges() {
    const LMessageAnswer answer =
        LShowMessageBox("Tone List", "Tone list modified. Do you want to save it?", LMessageButtons::YesNo);
    return (answer == LMessageAnswer::Yes && CmSaveList()) || SaveToTemporary();
}
