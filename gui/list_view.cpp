#include "gui/list_view.h"

#include "gui/window.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <numeric>

namespace {

bool Contains(const std::vector<int>& rows, int row) {
    return std::find(rows.begin(), rows.end(), row) != rows.end();
}

// Of rows in ascending order.

bool IsAmong(const std::vector<int>& ascending, int row) {
    return std::binary_search(ascending.begin(), ascending.end(), row);
}

int CountBefore(const std::vector<int>& ascending, int row) {
    return static_cast<int>(std::lower_bound(ascending.begin(), ascending.end(), row) - ascending.begin());
}

} // namespace

LListView::LListView(LWindow& owner, int control)
    : window(owner),
      id(control),
      peer(owner.GetControls().CreateListViewPeer(control, *this)) {}

void LListView::SetColumns(std::span<const LListColumn> shown) {
    columns = shown.size();
    peer->SetColumns({shown.begin(), shown.end()});
}

void LListView::EnableDragging() {
    peer->EnableDragging();
}

void LListView::SetFocus() {
    window.SetFocus(id);
}

void LListView::InsertRow(int row, const std::string& text, std::uint32_t data) {
    row = std::clamp(row, 0, GetCount());
    Row inserted{std::vector<std::string>(columns), data, {}};
    inserted.texts[0] = text;
    Insert(row, std::move(inserted));
    for (int& each : selection)
        each += each >= row ? 1 : 0;
    current += current >= row ? 1 : 0;
    ShowSelection();
}

/// The selection is left to the caller.
void LListView::Insert(int row, Row inserted) {
    peer->InsertRow(row, inserted.texts);
    peer->SetLook(row, inserted.look);
    rows.insert(rows.begin() + row, std::move(inserted));
}

void LListView::DeleteRows(std::vector<int> deleted) {
    std::erase_if(deleted, [this](int row) { return !HasRow(row); });
    std::sort(deleted.begin(), deleted.end());
    deleted.erase(std::unique(deleted.begin(), deleted.end()), deleted.end());
    const std::size_t selected = selection.size();
    TakeRows(deleted);
    std::erase_if(selection, [&deleted](int row) { return IsAmong(deleted, row); });
    for (int& each : selection)
        each -= CountBefore(deleted, each);
    current = std::min(current - CountBefore(deleted, current), GetCount() - 1);
    ShowSelection();
    if (selection.size() != selected && !rebuilding)
        Send(commands.selection);
}

void LListView::DeleteAll() {
    std::vector<int> all(rows.size());
    std::iota(all.begin(), all.end(), 0);
    DeleteRows(std::move(all));
}

/// Takes rows out of the list as it is shown, and returns them; the selection is left to the caller.
std::vector<LListView::Row> LListView::TakeRows(const std::vector<int>& ascending) {
    std::vector<Row> taken, left;
    for (int row = 0; row < GetCount(); ++row)
        (IsAmong(ascending, row) ? taken : left).push_back(std::move(rows[static_cast<std::size_t>(row)]));
    rows = std::move(left);
    peer->SetSelection({}, -1); // which would be kept up with every row that goes
    std::for_each(ascending.rbegin(), ascending.rend(), [this](int row) { peer->DeleteRow(row); });
    return taken;
}

bool LListView::MoveSelection(int before) {
    before = std::clamp(before, 0, GetCount());
    std::vector<int> dragged = selection;
    std::sort(dragged.begin(), dragged.end());
    const int target = before - CountBefore(dragged, before);
    const auto placeOf = [&](int row) {
        if (IsAmong(dragged, row))
            return target + CountBefore(dragged, row);
        const int among = row - CountBefore(dragged, row);
        return among < target ? among : among + static_cast<int>(dragged.size());
    };
    std::vector<int> places = selection;
    std::transform(places.begin(), places.end(), places.begin(), placeOf);
    if (places == selection)
        return false;
    const int newCurrent = HasRow(current) ? placeOf(current) : -1;
    std::vector<Row> moved = TakeRows(dragged);
    for (int i = 0; i < static_cast<int>(moved.size()); ++i)
        Insert(target + i, std::move(moved[static_cast<std::size_t>(i)]));
    selection = places;
    current = newCurrent;
    ShowSelection();
    return true;
}

void LListView::SetText(int row, int column, const std::string& text) {
    if (!HasRow(row) || column < 0 || column >= static_cast<int>(columns))
        return;
    rows[static_cast<std::size_t>(row)].texts[static_cast<std::size_t>(column)] = text;
    peer->SetText(row, column, text);
}

std::string LListView::GetText(int row, int column) const {
    if (!HasRow(row) || column < 0 || column >= static_cast<int>(columns))
        return {};
    return rows[static_cast<std::size_t>(row)].texts[static_cast<std::size_t>(column)];
}

std::uint32_t LListView::GetData(int row) const {
    return HasRow(row) ? rows[static_cast<std::size_t>(row)].data : 0;
}

void LListView::SetLook(int row, const LRowLook& look) {
    if (!HasRow(row))
        return;
    rows[static_cast<std::size_t>(row)].look = look;
    peer->SetLook(row, look);
}

void LListView::SelectRows(const std::vector<int>& chosen) {
    const std::vector<int> before = selection;
    std::vector<int> existing;
    std::copy_if(chosen.begin(), chosen.end(), std::back_inserter(existing),
                 [this](int row) { return HasRow(row); });
    Take(existing, existing.empty() ? current : existing.front());
    ShowChangedSelection(before);
}

void LListView::SetCurrent(int row) {
    if (HasRow(row))
        SelectRows({row});
}

/// Rows that stay selected keep their place in the order; the new ones follow.
void LListView::Take(const std::vector<int>& chosen, int newCurrent) {
    std::erase_if(selection, [&chosen](int row) { return !Contains(chosen, row); });
    std::copy_if(chosen.begin(), chosen.end(), std::back_inserter(selection),
                 [this](int row) { return !Contains(selection, row); });
    current = newCurrent;
}

void LListView::ShowSelection() {
    if (!rebuilding)
        peer->SetSelection(selection, current);
}

void LListView::ShowChangedSelection(const std::vector<int>& before) {
    ShowSelection();
    if (selection != before && !rebuilding)
        Send(commands.selection);
}

void LListView::Send(int command) {
    if (command != LCommandNone)
        window.Command(command);
}

void LListView::SelectionChanged(const std::vector<int>& chosen, int newCurrent) {
    const std::vector<int> before = selection;
    Take(chosen, newCurrent);
    if (selection != before)
        Send(commands.selection);
}

void LListView::RowsDragged(int before) {
    if (MoveSelection(before))
        Send(commands.rowsMoved);
}

void LListView::FilesDropped(const std::vector<std::string>& paths, int before) {
    window.EvDropFilesOnList(id, paths, before);
}

LListRebuild::LListRebuild(LListView& rebuilt) : list(rebuilt) {
    const std::vector<Key> keys = KeysOfAllRows();
    for (const int row : list.selection)
        selected.push_back(keys[static_cast<std::size_t>(row)]);
    if (list.HasRow(list.current))
        current.push_back(keys[static_cast<std::size_t>(list.current)]);
    list.rebuilding = true;
    list.DeleteAll();
}

LListRebuild::~LListRebuild() {
    std::map<Key, int> rows;
    for (const Key& key : KeysOfAllRows())
        rows.emplace(key, static_cast<int>(rows.size()));
    const auto rowOf = [&rows](const Key& key) {
        const auto found = rows.find(key);
        return found == rows.end() ? -1 : found->second;
    };
    for (const Key& key : selected)
        if (const int row = rowOf(key); row >= 0)
            list.selection.push_back(row);
    list.current = current.empty() ? -1 : rowOf(current.front());
    list.rebuilding = false;
    list.ShowSelection();
    list.Send(list.commands.selection);
}

std::vector<LListRebuild::Key> LListRebuild::KeysOfAllRows() const {
    std::map<std::uint32_t, int> seen;
    std::vector<Key> keys;
    for (const LListView::Row& row : list.rows)
        keys.push_back({row.data, seen[row.data]++});
    return keys;
}
