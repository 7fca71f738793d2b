#include "app/list_editor/list_dlg.h"

#include "app/desktop/help_pages.h"
#include "app/list_editor/list_dlg_layout.h"
#include "app/setting_names.h"
#include "app/window/notices.h"
#include "app/window/time_text.h"
#include "gui/file_chooser.h"
#include "gui/numeric_edit.h"
#include "gui/toolkit.h"
#include "jobs/file_notices.h"
#include "jobs/tone_lists.h"
#include "sys/desktop/message_box.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_data.h"
#include "tone/tone_list_file.h"
#include "tone/tone_list_report.h"

#include <algorithm>
#include <climits>

namespace {

constexpr LListColumn Columns[] = {{.title = "Tone", .fills = true}, {.title = "Problem"}};
constexpr LFileFilter AddToneFilters[] = {{"Tone files", "*.tdf"}};
constexpr std::uint32_t UnknownLength = UINT32_MAX;

} // namespace

ListDlg::ListDlg(EditedList editedList) : LDialog(ListDlgLayout), edited(std::move(editedList)) {}

void ListDlg::Command(int command) {
    switch (command) {
    case ListAddTone:
        CmAddTone();
        break;
    case ListAddSilence:
        CmAddSilence();
        break;
    case ListMoveUp:
        CmMoveUp();
        break;
    case ListMoveDown:
        CmMoveDown();
        break;
    case ListRemove:
        CmRemove();
        break;
    case ListSave:
        CmSaveList();
        break;
    case ListSaveAs:
        CmSaveAs();
        break;
    case ListRowsDragged:
        Modify();
        break;
    default:
        EnableControls();
    }
}

void ListDlg::InitDialog() {
    list = std::make_unique<LListView>(*this, ListRows);
    list->SetColumns(Columns);
    list->BindCommands({.selection = ListSelectionChanged, .rowsMoved = ListRowsDragged});
    list->EnableDragging();
    OpenList();
    modified = edited.IsRecovered();
    list->SetFocus();
    ShowTotal();
}

void ListDlg::OpenList() {
    if (!edited.GetPath().empty())
        ReadList();
    else if (const LFailure failure = edited.CreateFile())
        ShowNotice(DescribeNoTemporary(failure));
}

void ListDlg::ReadList() {
    ExpandedEntry opened = ExpandList(edited.GetPath());
    std::vector<LNotice> notices;
    {
        const LListRebuild rebuild(*list);
        AddEntries(opened, 0, notices);
    }
    written = std::move(opened.written);
    openedIn = GetFolder(edited.GetPath());
    ShowNotices(notices);
}

void ListDlg::DestroyDialog() {
    list.reset();
    if (!accepted)
        edited.Drop();
    const bool unasked = modified && !accepted && GetToolkit().IsSessionEnding();
    if (!unasked)
        EditedList::DropDraft();
}

void ListDlg::EnableControls() {
    const bool one = list->GetSelection().size() == 1;
    EnableControl(ListMoveUp, one);
    EnableControl(ListMoveDown, one);
}

bool ListDlg::CmOk() {
    accepted = !modified || KeepChanges();
    return accepted;
}

void ListDlg::CmCancel() {
    if (MayDropChanges())
        LDialog::CmCancel();
}

void ListDlg::CmAddTone() {
    LFileChooser chooser{"Select file", "", Setting::EntryReadFolder.Get(), AddToneFilters, ""};
    const std::string path = LChooseFileToRead(*this, chooser);
    if (path.empty())
        return;
    Setting::EntryReadFolder.Set(chooser.folder);
    std::vector<LNotice> notices;
    if (AddFile(path, list->GetCount(), notices))
        ShowAdded();
    ShowNotices(notices);
}

bool ListDlg::AddFile(const std::string& path, int row, std::vector<LNotice>& notices) {
    SonvireData tone;
    if (HasExtension(path, ".tdf")) {
        if (const LFailure failure = tone.ReadFromFile(path.c_str())) {
            notices.push_back(DescribeUnreadable(path, failure));
            return false;
        }
        if (!tone.IsFinite()) {
            notices.push_back({"", "Cannot add tones of infinite duration to list. Please check the selected "
                                   "tone is not to be played continuously or repeatly."});
            return false;
        }
    }
    AddEntries(tone.IsList() ? ExpandList(tone.GetListPath()) : ExpandListEntry(path), row, notices);
    return true;
}

void ListDlg::AddEntries(const ExpandedEntry& expanded, int row, std::vector<LNotice>& notices) {
    notices.insert(notices.end(), expanded.notices.begin(), expanded.notices.end());
    for (const std::string& entry : expanded.entries) {
        if (const LFailure refusal = CheckListEntry(entry))
            notices.push_back(DescribeNotAdded(entry, refusal));
        else
            InsertEntry(entry, row++);
    }
}

void ListDlg::InsertEntry(const std::string& entry, int row) {
    const ToneListEntry measured = ExamineToneListEntry(entry);
    const bool plays = measured.problem.empty();
    list->InsertRow(row, entry,
                    plays ? static_cast<std::uint32_t>(measured.length.GetMilliseconds()) : UnknownLength);
    list->SetText(row, 1, measured.problem);
}

/// Files from the desktop are added like those of the button, in the order in which they were dropped.
void ListDlg::EvDropFilesOnList(int /*control*/, const std::vector<std::string>& paths, int before) {
    const int rowsBelow = list->GetCount() - before;
    std::vector<LNotice> notices;
    bool added = false;
    for (const std::string& path : paths)
        added = AddFile(path, list->GetCount() - rowsBelow, notices) || added;
    if (added)
        Modify();
    ShowNotices(notices);
}

void ListDlg::CmAddSilence() {
    LNumericEdit box("Add silence to list", "Please specify the length of silence in milliseconds:", "");
    if (!box.RunModal(*this))
        return;
    if (box.GetEntry().find_first_not_of("0123456789.") != std::string::npos) {
        LShowMessageBox("", "Duration should be specified as a numeric value.");
        return;
    }
    InsertEntry(box.GetEntry() + SilenceSuffix, list->GetCount());
    ShowAdded();
}

/// What has come to the end stands ready to be moved.
void ListDlg::ShowAdded() {
    list->SetCurrent(list->GetCount() - 1);
    Modify();
}

void ListDlg::MoveRow(int step) {
    const std::vector<int> selection = list->GetSelection();
    if (selection.size() != 1)
        return;
    list->MoveRow(selection.front(), selection.front() + step);
    Modify();
}

void ListDlg::CmRemove() {
    const std::vector<int> rows = list->GetSelection();
    list->DeleteRows(rows);
    if (!rows.empty())
        list->SetCurrent(std::min(*std::min_element(rows.begin(), rows.end()), list->GetCount() - 1));
    Modify();
}

std::vector<std::string> ListDlg::GetEntries() const {
    std::vector<std::string> entries;
    entries.reserve(static_cast<std::size_t>(list->GetCount()));
    for (int row = 0; row < list->GetCount(); ++row)
        entries.push_back(list->GetText(row, 0));
    return entries;
}

void ListDlg::Modify() {
    modified = true;
    EditedList::KeepDraft(GetEntries());
    ShowTotal();
    EnableControls();
}

/// The length of one pass.
void ListDlg::ShowTotal() {
    std::int64_t total = 0;
    int unknown = 0;
    for (int row = 0; row < list->GetCount(); ++row) {
        const std::uint32_t length = list->GetData(row);
        if (length == UnknownLength)
            ++unknown;
        else
            total += static_cast<std::int32_t>(length);
    }
    const auto shown = static_cast<int>(std::clamp<std::int64_t>(total, 0, INT_MAX));
    SetText(ListTotal, "Total: " + FormatTime(LSoundTime(shown)) + (unknown > 0 ? " or more" : ""));
    SetToolTip(ListTotal,
               unknown == 0 ? "" : "Entries that are endless or can't be read: " + std::to_string(unknown));
}

void ListDlg::CmHelp() {
    OpenHelpPage(*this, HelpPage::Lists);
}

bool OpenToneListDialog(LWindow& parent, EditedList& list) {
    ListDlg dialog(list);
    const bool ok = dialog.RunModal(parent);
    list = dialog.GetList();
    return ok;
}
