#include "app/list_editor/entry_rows.h"

#include "app/window/time_text.h"
#include "tone/tone_list_report.h"

#include <algorithm>
#include <climits>
#include <set>
#include <utility>

namespace {

constexpr LListColumn Columns[] = {{.title = "Tone", .fills = true}, {.title = "Problem"}};

LRowMark GetMark(const ToneListEntry& entry) {
    return entry.endless ? LRowMark::Endless : entry.problem.empty() ? LRowMark::None : LRowMark::Problem;
}

std::string Describe(const ToneListEntry& entry) {
    return (entry.file.empty() ? "Silence" : entry.file) + "\n" +
           (entry.problem.empty() ? "Length: " + FormatTime(entry.length) : entry.problem);
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

LSoundTime EntryRows::GetTotal() const {
    std::int64_t total = 0;
    for (const std::uint32_t entry : GetOrder())
        total += known[entry].hasLength ? known[entry].ms : 0;
    return LSoundTime(static_cast<int>(std::clamp<std::int64_t>(total, 0, INT_MAX)));
}

int EntryRows::CountWithoutLength() const {
    const Order shown = GetOrder();
    return static_cast<int>(std::count_if(shown.begin(), shown.end(),
                                          [this](std::uint32_t entry) { return !known[entry].hasLength; }));
}

void EntryRows::Insert(const std::string& entry, int row) {
    const ToneListEntry measured = ExamineToneListEntry(entry);
    known.push_back({.text = entry,
                     .problem = measured.problem,
                     .look = {.mark = GetMark(measured), .toolTip = Describe(measured)},
                     .ms = measured.length.GetMilliseconds(),
                     .hasLength = measured.problem.empty()});
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
