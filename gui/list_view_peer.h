#pragma once

#include "gui/list_look.h"

#include <memory>
#include <string>
#include <vector>

class LMenuPeer;

/// What the user does to a list. Rows are counted from 0.
class LListViewEvents {
public:
    virtual ~LListViewEvents() = default;

    /// The selected rows from top to bottom, and the row that the keyboard stands on, -1 for none.
    virtual void SelectionChanged(const std::vector<int>& rows, int current) = 0;
    virtual void DoubleClicked() = 0;
    /// Also for the keyboard's menu key.
    virtual void RightClicked() = 0;
    /// The selected rows were dragged to stand before row `before`; nothing has moved yet.
    virtual void RowsDragged(int before) = 0;
    virtual void FilesDropped(const std::vector<std::string>& paths, int before) = 0;
};

/// The toolkit's side of a list. It shows what it is told and raises no event for that.
class LListViewPeer {
public:
    virtual ~LListViewPeer() = default;

    virtual void SetColumns(const std::vector<LListColumn>& columns) = 0;
    virtual void InsertRow(int row, const std::vector<std::string>& texts) = 0;
    virtual void DeleteRow(int row) = 0;
    virtual void SetText(int row, int column, const std::string& text) = 0;
    virtual void SetLook(int row, const LRowLook& look) = 0;
    /// How high the list has to be to show its header and all its rows, in units of the layout.
    virtual int GetHeight() const = 0;
    /// Selects exactly these rows and brings the current one into view.
    virtual void SetSelection(const std::vector<int>& rows, int current) = 0;
    /// Lets the user drag rows to another place, and drop files between them.
    virtual void EnableDragging() = 0;
    /// For an `LMenu` that returns a right click, at the pointer or, where the keyboard asked for it, below
    /// the current row; made, shown once, and gone.
    virtual std::unique_ptr<LMenuPeer> CreatePopupMenu() = 0;
};
