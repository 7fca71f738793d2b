#pragma once

#include "gui/list_view_peer.h"
#include "gui/menu.h"

#include <cstdint>
#include <memory>
#include <span>

class LWindow;

/// The commands that a list sends to its window; 0 for none.
struct LListCommands {
    int selection = 0; ///< the selected rows are others than before
    int doubleClick = 0;
    int rightClick = 0;
    int rowsMoved = 0; ///< the user has dragged rows to another place
};

/// A list control: rows of texts in columns, each with 32 bits of user data, any number of them selected. A
/// row that does not exist is ignored, and reads as empty. The window must outlive the list.
class LListView : private LListViewEvents {
public:
    /// For the control of this id, which the window has.
    LListView(LWindow& owner, int control);
    LListView(const LListView&) = delete;
    LListView& operator=(const LListView&) = delete;

    /// Of a list without rows.
    void SetColumns(std::span<const LListColumn> shown);
    void BindCommands(const LListCommands& bound) { commands = bound; }
    /// Lets the user drag rows within the list, and drop files into it: these go to the window's
    /// `EvDropFilesOnList`.
    void EnableDragging();
    void SetFocus();
    std::unique_ptr<LMenuPeer> CreatePopupMenu() { return peer->CreatePopupMenu(); }

    int GetCount() const { return static_cast<int>(rows.size()); }
    /// A `row` beyond the last appends.
    void InsertRow(int row, const std::string& text, std::uint32_t data = 0);
    void AppendRow(const std::string& text, std::uint32_t data = 0) { InsertRow(GetCount(), text, data); }
    void DeleteRow(int row) { DeleteRows({row}); }
    void DeleteRows(std::vector<int> deleted);
    void DeleteAll();
    /// The selected rows together, in their order, to stand before what row `before` is now; they stay
    /// selected. True where that changed their places.
    bool MoveSelection(int before);
    void SetText(int row, int column, const std::string& text);
    std::string GetText(int row, int column) const;
    std::uint32_t GetData(int row) const;
    /// Stays with the row; a new one is plain but for its shade, which follows from its place.
    void SetLook(int row, const LRowLook& look);
    /// How high the list has to be to show its header and all its rows, in units of the layout.
    int GetHeight() const { return peer->GetHeight(); }

    /// The selected rows in the order in which they were selected; rows selected at once count from the top.
    const std::vector<int>& GetSelection() const { return selection; }
    void SelectRows(const std::vector<int>& chosen);
    /// The row that the keyboard stands on, -1 for none.
    int GetCurrent() const { return current; }
    void SetCurrent(int row);

private:
    friend class LListRebuild;

    struct Row {
        std::vector<std::string> texts;
        std::uint32_t data = 0;
        LRowLook look;
    };

    void Insert(int row, Row inserted);
    std::vector<Row> TakeRows(const std::vector<int>& ascending);

    bool HasRow(int row) const { return row >= 0 && row < GetCount(); }
    void Take(const std::vector<int>& chosen, int newCurrent);
    void ShowSelection();
    void ShowChangedSelection(const std::vector<int>& before);
    void Send(int command);

    void SelectionChanged(const std::vector<int>& chosen, int newCurrent) override;
    void DoubleClicked() override { Send(commands.doubleClick); }
    void RightClicked() override { Send(commands.rightClick); }
    void RowsDragged(int before) override;
    void FilesDropped(const std::vector<std::string>& paths, int before) override;

    LWindow& window;
    int id;
    LListCommands commands;
    std::size_t columns = 1;
    std::vector<Row> rows;
    std::vector<int> selection;
    int current = -1;
    bool rebuilding = false;
    std::unique_ptr<LListViewPeer> peer;
};

/// Empties a list so that its rows can be built anew, and selects, once it is destroyed, the rows that were
/// selected before and are still there: those with the same user data, counted from the top where several
/// rows share it. Then the selection command is sent once.
class LListRebuild {
public:
    explicit LListRebuild(LListView& rebuilt);
    ~LListRebuild();
    LListRebuild(const LListRebuild&) = delete;
    LListRebuild& operator=(const LListRebuild&) = delete;

private:
    /// A row by what outlives a rebuild.
    struct Key {
        std::uint32_t data;
        int occurrence; ///< how many rows with the same data stand above it

        auto operator<=>(const Key&) const = default; // NOLINT(modernize-use-nullptr): it sees a 0
    };

    std::vector<Key> KeysOfAllRows() const;

    LListView& list;
    std::vector<Key> selected;
    std::vector<Key> current; ///< none or one
};
