#include "app/list_editor/entry_rows.h"

#include "app/list_report.h"
#include "app/window/list_rows.h"
#include "app/window/time_text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace {

constexpr LListColumn Columns[] = {{.title = "Tone", .fills = true}, {.title = "Problem"}};

std::string Describe(const ToneListEntry& entry, const ToneListLength& length) {
    return (entry.file.empty() ? "Silence" : entry.file) + "\n" +
           (entry.problem.empty() ? "Length: " + FormatLength(length) : entry.problem);
}

} // namespace

EntryRows::EntryRows(LWindow& window, int control) : view(window, control) {
    view.SetColumns(Columns);
    view.EnableDragging();
}

std::vector<std::string> EntryRows::GetEntries() const {
    std::vector<std::string> entries;
    for (const std::uint32_t entry : GetOrder())
        entries.push_back(known[entry].text);
    return entries;
}

ToneListLength EntryRows::Measure() const {
    ToneListLength length;
    for (const std::uint32_t entry : GetOrder())
        length += known[entry].length;
    return length;
}

void EntryRows::Insert(const std::string& entry, int row) {
    const ToneListReport report = ExamineListLine(entry, quality);
    const ToneListEntry& found = report.entries.front();
    const ToneListLength length = report.Measure();
    known.push_back({.text = entry,
                     .problem = found.problem,
                     .look = {.mark = GetEntryMark(found), .toolTip = Describe(found, length)},
                     .length = length});
    Show(static_cast<std::uint32_t>(known.size() - 1), row);
}

void EntryRows::Show(std::uint32_t entry, int row) {
    view.InsertRow(row, known[entry].text, entry);
    view.SetText(row, 1, known[entry].problem);
    view.SetLook(row, known[entry].look);
}

void EntryRows::Replace(int row, const std::string& entry) {
    view.DeleteRow(row);
    Insert(entry, row);
    view.SetCurrent(row);
}

void EntryRows::RemoveSelected() {
    const std::vector<int> rows = view.GetSelection();
    view.DeleteRows(rows);
    if (!rows.empty())
        view.SetCurrent(std::min(*std::min_element(rows.begin(), rows.end()), view.GetCount() - 1));
}

void EntryRows::MoveSelected(int step) {
    const std::vector<int>& rows = view.GetSelection();
    if (rows.empty())
        return;
    const auto [first, last] = std::minmax_element(rows.begin(), rows.end());
    view.MoveSelection(step < 0 ? *first + step : *last + step + 1);
}

EntryRows::Order EntryRows::GetOrder() const {
    Order shown;
    for (int row = 0; row < view.GetCount(); ++row)
        shown.push_back(view.GetData(row));
    return shown;
}

void EntryRows::Keep(Series series) {
    const Order before = std::exchange(order, GetOrder());
    if (order != before)
        history.Keep(before, series);
}

void EntryRows::Begin(bool areSaved) {
    order = GetOrder();
    if (areSaved)
        SetSaved();
}

void EntryRows::Restore(const std::optional<Order>& wanted) {
    if (!wanted)
        return;
    const int stoodOn = view.GetCurrent();
    {
        const LListRebuild rebuild(view);
        for (const std::uint32_t entry : *wanted)
            Show(entry, view.GetCount());
    }
    const std::set<std::uint32_t> before(order.begin(), order.end());
    order = *wanted;
    std::vector<int> cameBack;
    for (int row = 0; row < view.GetCount(); ++row)
        if (!before.contains(view.GetData(row)))
            cameBack.push_back(row);
    if (!cameBack.empty())
        view.SelectRows(cameBack);
    else if (view.GetSelection().empty())
        view.SetCurrent(std::min(stoodOn, view.GetCount() - 1));
}
