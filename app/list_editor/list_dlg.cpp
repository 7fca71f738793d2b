#include "app/list_editor/list_dlg.h"

#include "app/desktop/help_pages.h"
#include "app/file_kinds.h"
#include "app/list_editor/list_dlg_layout.h"
#include "app/list_editor/silence_box.h"
#include "app/quality.h"
#include "app/setting_names.h"
#include "app/window/notices.h"
#include "app/window/time_text.h"
#include "app/window/tone_document.h"
#include "gui/file_chooser.h"
#include "gui/toolkit.h"
#include "jobs/file_notices.h"
#include "jobs/tone_lists.h"
#include "sys/path.h"
#include "tone/tone_data.h"

ListDlg::ListDlg(EditedList editedList) : LDialog(ListDlgLayout), edited(std::move(editedList)) {}

void ListDlg::Command(int command) {
    struct Action {
        int command;
        void (*act)(ListDlg& dialog);
    };
    static constexpr Action actions[] = {
        {ListAddTone, [](ListDlg& dialog) { dialog.CmAddTone(); }},
        {ListAddSilence, [](ListDlg& dialog) { dialog.CmAddSilence(); }},
        {ListEditSilence, [](ListDlg& dialog) { dialog.CmEditSilence(); }},
        {ListMoveUp, [](ListDlg& dialog) { dialog.CmMove(-1); }},
        {ListMoveDown, [](ListDlg& dialog) { dialog.CmMove(1); }},
        {ListRemove, [](ListDlg& dialog) { dialog.CmRemove(); }},
        {ListUndo, [](ListDlg& dialog) { dialog.CmUndo(); }},
        {ListRedo, [](ListDlg& dialog) { dialog.CmRedo(); }},
        {ListSave, [](ListDlg& dialog) { dialog.CmSaveList(); }},
        {ListSaveAs, [](ListDlg& dialog) { dialog.CmSaveAs(); }},
        {ListRowsDragged, [](ListDlg& dialog) { dialog.Modify(); }},
        {ListRowsMenu, [](ListDlg& dialog) { dialog.CmRowsMenu(); }},
        {ListSelectionChanged, [](ListDlg& dialog) { dialog.rows->EndSeries(); }},
    };
    for (const Action& action : actions)
        if (action.command == command)
            action.act(*this);
    EnableControls();
}

void ListDlg::InitDialog() {
    rows = std::make_unique<EntryRows>(*this, ListRows);
    rows->GetView().BindCommands({.selection = ListSelectionChanged,
                                  .doubleClick = ListEditSilence,
                                  .rightClick = ListRowsMenu,
                                  .rowsMoved = ListRowsDragged});
    SetName(ListRows, "Entries");
    SetKeys(ListDlgKeys);
    OpenList();
    modified = edited.IsRecovered();
    rows->Begin(!modified);
    rows->GetView().SetFocus();
    ShowState();
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
        const LListRebuild rebuild(rows->GetView());
        AddEntries(opened, 0, notices);
    }
    written = std::move(opened.written);
    openedIn = GetFolder(edited.GetPath());
    ShowNotices(notices);
}

void ListDlg::DestroyDialog() {
    rows.reset();
    if (!accepted)
        edited.Drop();
    const bool unasked = modified && !accepted && GetToolkit().IsSessionEnding();
    if (!unasked)
        EditedList::DropDraft();
}

void ListDlg::EnableControls() {
    const bool one = rows->GetView().GetSelection().size() == 1;
    EnableControl(ListMoveUp, one);
    EnableControl(ListMoveDown, one);
}

/// Return on anything but a silence is OK's.
bool ListDlg::KeyPressed(const LKeyPress& key) {
    return (key.virtualKey != LKeyReturn || GetSelectedSilence() >= 0) && LDialog::KeyPressed(key);
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
    std::vector<LFileFilter> filters = {{"Tone files", "*.tdf"}};
    if (GetQuality().IsHigh())
        filters.push_back(GetSoundFilter());
    LFileChooser chooser{"Select file", "", Setting::EntryReadFolder.Get(), filters, ""};
    const std::string path = LChooseFileToRead(*this, chooser);
    if (path.empty())
        return;
    Setting::EntryReadFolder.Set(chooser.folder);
    std::vector<LNotice> notices;
    if (AddFile(path, rows->GetView().GetCount(), notices))
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
            rows->Insert(entry, row++);
    }
}

/// Files from the desktop are added like those of the button, in the order in which they were dropped.
void ListDlg::EvDropFilesOnList(int /*control*/, const std::vector<std::string>& paths, int before) {
    const LListView& view = rows->GetView();
    const int rowsBelow = view.GetCount() - before;
    std::vector<LNotice> notices;
    bool added = false;
    for (const std::string& path : paths)
        added = AddFile(path, view.GetCount() - rowsBelow, notices) || added;
    if (added)
        Modify();
    ShowNotices(notices);
}

void ListDlg::CmAddSilence() {
    if (const auto silence = AskForSilence(*this, "")) {
        rows->Insert(*silence, rows->GetView().GetCount());
        ShowAdded();
    }
}

int ListDlg::GetSelectedSilence() const {
    const std::vector<int>& selection = rows->GetView().GetSelection();
    return selection.size() == 1 && IsSilence(rows->GetEntry(selection.front())) ? selection.front() : -1;
}

void ListDlg::CmEditSilence() {
    const int row = GetSelectedSilence();
    if (row < 0)
        return;
    if (const auto silence = AskForSilence(*this, rows->GetEntry(row))) {
        rows->Replace(row, *silence);
        Modify();
    }
}

/// What has come to the end stands ready to be moved.
void ListDlg::ShowAdded() {
    rows->GetView().SetCurrent(rows->GetView().GetCount() - 1);
    Modify();
}

/// Kept quirk: a row that is at the end already, and stays there, counts as a change. So does removing none.
void ListDlg::CmMove(int step) {
    if (rows->GetView().GetSelection().empty())
        return;
    rows->MoveSelected(step);
    Modify(EntryRows::MovesOfTheSameRows);
}

void ListDlg::CmRemove() {
    rows->RemoveSelected();
    Modify();
}

void ListDlg::CmUndo() {
    rows->Undo();
    Follow(!rows->AreSaved());
}

void ListDlg::CmRedo() {
    rows->Redo();
    Follow(!rows->AreSaved());
}

void ListDlg::CmRowsMenu() {
    LMenu menu(rows->GetView().CreatePopupMenu(), ListDlgMenu);
    const bool any = !rows->GetView().GetSelection().empty();
    menu.Enable(ListEditSilence, GetSelectedSilence() >= 0);
    for (const int command : {ListMoveUp, ListMoveDown, ListRemove})
        menu.Enable(command, any);
    menu.Enable(ListUndo, rows->CanUndo());
    menu.Enable(ListRedo, rows->CanRedo());
    ShowKeys(ListDlgKeys, [&menu](int command, const std::string& key) { menu.SetKeyText(command, key); });
    if (const int chosen = menu.Choose(); chosen != 0)
        Command(chosen);
}

void ListDlg::Modify(EntryRows::Series series) {
    rows->Keep(series);
    Follow(true);
}

/// What is not in the list's file is kept in a draft.
void ListDlg::Follow(bool changed) {
    modified = changed;
    modified ? EditedList::KeepDraft(rows->GetEntries()) : EditedList::DropDraft();
    ShowState();
}

void ListDlg::ShowState() {
    LWindowDocument document = DescribeList(edited.GetPath());
    document.changed = modified;
    SetDocument(document);
    ShowTotal();
}

/// The length of one pass.
void ListDlg::ShowTotal() {
    const ToneListLength total = rows->Measure();
    SetText(ListTotal, "Total: " + FormatLength(total));
    SetToolTip(ListTotal, total.unknown == 0 ? ""
                                             : "Entries that are endless or can't be read: " +
                                                   std::to_string(total.unknown));
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
