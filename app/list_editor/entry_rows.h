#pragma once

#include "app/edit_history.h"
#include "app/quality.h"
#include "gui/list_view.h"
#include "tone/tone_list_report.h"

/// The rows of the tone list editor: entries in playing order, with what is wrong with them, and the orders
/// that they stood in before, to which the user can go back.
class EntryRows {
public:
    /// Changes that are one step back where they follow each other.
    enum Series { NoSeries, MovesOfTheSameRows };

    /// In the list control of this id.
    EntryRows(LWindow& window, int control);

    LListView& GetView() { return view; }
    std::vector<std::string> GetEntries() const;
    std::string GetEntry(int row) const { return view.GetText(row, 0); }
    /// Of all of them together.
    ToneListLength Measure() const;

    void Insert(const std::string& entry, int row);
    void Replace(int row, const std::string& entry);
    /// The row behind the last one that goes is selected.
    void RemoveSelected();
    /// All selected rows together, by one place; at the end they stay.
    void MoveSelected(int step);

    /// The rows as they are now are what is edited.
    void Begin(bool areSaved);
    /// Ends a step of the user's: what was there before it can be gone back to.
    void Keep(Series series = NoSeries);
    /// The next change is a step of its own, whatever its series.
    void EndSeries() { history.EndSeries(); }
    /// The rows as they are now are those of the list's file.
    void SetSaved() { saved = order; }
    bool AreSaved() const { return order == saved; }
    bool CanUndo() const { return history.CanUndo(); }
    bool CanRedo() const { return history.CanRedo(); }
    // The rows that come back are selected, or else those that stay so.
    void Undo() { Restore(history.Undo(order)); }
    void Redo() { Restore(history.Redo(order)); }

private:
    /// An entry that has been in the editor, whether or not it still is.
    struct Known {
        std::string text;
        std::string problem;
        LRowLook look;
        ToneListLength length;
    };
    /// The entries by their places in `known`, which are the user data of their rows.
    using Order = std::vector<std::uint32_t>;

    Order GetOrder() const;
    void Show(std::uint32_t entry, int row);
    void Restore(const std::optional<Order>& wanted);

    const Quality& quality = GetQuality(); ///< asked for once, not by thousands of entries
    LListView view;
    std::vector<Known> known;
    Order order; ///< after the last step
    std::optional<Order> saved;
    EditHistory<Order> history;
};
