#pragma once

#include "gui/list_view.h"
#include "gui/numeric_edit.h"
#include "sys/notice.h"
#include "tone/tone_data.h"

#include <functional>

/// The rows of the main window's list: they show the items of the tone and edit them, or show the lines of
/// the list that it plays.
class ToneRows {
public:
    /// Both must outlive this.
    ToneRows(LWindow& owner, SonvireData& currentTone) : window(owner), tone(currentTone) {}

    /// Puts the list into the window, and takes it out.
    void Create();
    void Destroy() { list.reset(); }
    /// Fills it for the first time; what the user does there is sent to the window from then on.
    void Begin();

    /// After every change of what rows the tone has. Selected rows that are still there stay selected.
    void SetupListViewData();
    /// With all rows in sight.
    int GetHeight() const { return list->GetHeight(); }
    bool HasSelection() const { return !list->GetSelection().empty(); }
    std::unique_ptr<LMenuPeer> CreatePopupMenu() { return list->CreatePopupMenu(); }

    // Each selected row's item by `count` steps, or by a large one; false where no row is selected.
    bool IncreaseListViewData(int count);
    bool DecreaseListViewData(int count);
    bool IncreaseListViewDataLarge();
    bool DecreaseListViewDataLarge();
    /// Asks for the value of one selected row after the other until the user cancels; true where at least one
    /// was set.
    bool ChangeListViewData();

private:
    void InsertListViewItem(unsigned int item);
    void UpdateListViewItem(unsigned int item, int row);
    bool StepSelectedItems(const std::function<void(unsigned int)>& step);
    LEntryRules MakeEntryRules(unsigned int item);
    std::vector<int> GetRowsWithValue() const;
    bool SetTypedItem(int row, const std::string& text);
    bool SetAlike(std::vector<int>& rows, unsigned int item, const std::string& text);

    LWindow& window;
    SonvireData& tone;
    std::unique_ptr<LListView> list;
    bool showsList = false;
    /// Files of the list that are told to be missing once the window shows the rows.
    std::shared_ptr<std::vector<LNotice>> missing = std::make_shared<std::vector<LNotice>>();
};
