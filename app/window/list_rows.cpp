#include "app/window/command_ids.h"
#include "app/window/frequency_setting.h"
#include "app/window/main_dialog.h"
#include "app/window/menu_table.h"
#include "app/window/notices.h"
#include "app/window/tone_commands.h"
#include "gui/numeric_edit.h"
#include "gui/toolkit.h"
#include "jobs/tone_lists.h"
#include "sys/desktop/message_box.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_items.h"
#include "tone/tone_list_source.h"

static constexpr int MostBoxes = 10; // in a row that anybody can be asked to close

void MainDialog::SetupListViewData() {
    {
        const LListRebuild rebuild(*list);
        for (const unsigned int item : GetShownItems(tone))
            InsertListViewItem(item);
    }
    if (list->GetSelection().empty())
        list->SetCurrent(0); // so that a key has something to step
}

void MainDialog::InsertListViewItem(unsigned int item) {
    if (IsList(tone)) {
        InsertListRows(item);
        return;
    }
    list->AppendRow(tone.GetItemName(item), item);
    UpdateListViewItem(item, list->GetCount() - 1);
}

/// One row for each line of the list file. The last one shows the list's own name instead of its entry; that
/// is meant.
void MainDialog::InsertListRows(unsigned int item) {
    const std::string path = tone.GetListPath();
    std::vector<std::string> lines;
    if (ReadToneListLines(lines, path.c_str()))
        return; // there is nothing to show
    int missing = 0;
    for (const std::string& line : lines) {
        const bool exists = IsSilence(line) || FileExists(FindListEntry(line, GetFolder(path)));
        if (!exists && ++missing <= MostBoxes)
            LShowMessageBox("Error", "File \"" + line + "\" does not exist.");
        list->AppendRow(line, item);
    }
    if (missing > MostBoxes)
        LShowMessageBox("Error",
                        std::to_string(missing - MostBoxes) + " more files of the list do not exist.");
    if (list->GetCount() == 0)
        list->AppendRow(path, item);
    else
        list->SetText(list->GetCount() - 1, 0, GetExtension(path) == ".tdl" ? path : "Unsaved list");
}

void MainDialog::UpdateListViewItem(unsigned int item, int row) {
    if (!IsList(tone))
        list->SetText(row, 1, tone.GetItemValue(item));
}

bool MainDialog::IncreaseListViewData(int count) {
    return StepSelectedItems([this, count, step = ReadFrequencyStep()](unsigned int item) {
        for (int i = 0; i < count; ++i)
            tone.IncreaseItem(item, step);
    });
}

bool MainDialog::DecreaseListViewData(int count) {
    return StepSelectedItems([this, count, step = ReadFrequencyStep()](unsigned int item) {
        for (int i = 0; i < count; ++i)
            tone.DecreaseItem(item, step);
    });
}

bool MainDialog::IncreaseListViewDataLarge() {
    return StepSelectedItems([this](unsigned int item) { tone.IncreaseItemLarge(item); });
}

bool MainDialog::DecreaseListViewDataLarge() {
    return StepSelectedItems([this](unsigned int item) { tone.DecreaseItemLarge(item); });
}

bool MainDialog::StepSelectedItems(const std::function<void(unsigned int)>& step) {
    if (IsList(tone))
        return false; // its length follows from the list
    for (const int row : list->GetSelection()) {
        const unsigned int item = list->GetData(row);
        step(item);
        UpdateListViewItem(item, row);
    }
    return !list->GetSelection().empty();
}

/// Asks for the value of one selected row after the other until the user cancels; true where at least one was
/// set.
bool MainDialog::ChangeListViewData() {
    bool changed = false;
    const std::vector<int> rows = list->GetSelection();
    for (const int row : rows) {
        const unsigned int item = list->GetData(row);
        if (tone.GetItemValue(item).empty())
            continue; // a row that only names the waveform
        LNumericEdit box("Edit Value", tone.GetItemName(item), tone.GetItemValue(item));
        if (!box.Open(*this))
            break;
        if (IsList(tone) || list->GetData(row) != item)
            break; // meanwhile a document has arrived
        if (const auto notice = tone.SetItemValue(item, box.GetText().c_str()))
            ShowNotice(*notice);
        UpdateListViewItem(item, row);
        changed = true;
    }
    return changed;
}

void MainDialog::CmToneEditValue() {
    if (IsList(tone))
        CmEditList(tone.GetListPath());
    else if (ChangeListViewData())
        Restart();
}

void MainDialog::CmListViewRightClickMenu() {
    LMenu menu(GetToolkit().CreatePopupMenu(), GetListMenu());
    EnableMenuItems(menu, GetState());
    if (const int chosen = menu.Choose(); chosen != 0)
        Command(chosen);
}
