#include "app/window/tone_rows.h"

#include "app/quality.h"
#include "app/setting_names.h"
#include "app/window/command_ids.h"
#include "app/window/list_rows.h"
#include "app/window/notices.h"
#include "gui/toolkit.h"
#include "gui/window.h"
#include "tone/frequency_step.h"
#include "tone/tone_items.h"
#include "tone/typed_item.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

constexpr LListColumn Columns[] = {{.title = "Tone Data"}, {.title = "Values", .values = true}};
constexpr const char* ToneHint = "Tone details (double click to modify)";

FrequencyStep ReadFrequencyStep() {
    return {.bySemitones = Setting::StepsBySemitone.Get(),
            .semitones = Setting::StepSemitones.Get(),
            .hz = std::strtof(Setting::StepHz.Get().c_str(), nullptr)};
}

} // namespace

void ToneRows::Create() {
    window.GetControls().Add({ControlList, LControlKind::List, "", {}});
    list = std::make_unique<LListView>(window, ControlList);
}

void ToneRows::Begin() {
    SetupListViewData();
    list->SetFocus();
    list->SetCurrent(0);
    list->BindCommands({.selection = CommandSelection,
                        .doubleClick = CommandListDoubleClick,
                        .rightClick = CommandListRightClick});
}

void ToneRows::SetupListViewData() {
    const bool isOfOneKind = std::exchange(showsList, tone.IsList()) == tone.IsList();
    const bool hasPlace = isOfOneKind && !list->GetSelection().empty();
    const int place = hasPlace ? list->GetSelection().front() : 0;
    missing->clear(); // what has not been told yet was of other rows
    {
        const LListRebuild rebuild(*list);
        list->SetColumns(tone.IsList() ? GetListColumns() : Columns);
        for (const unsigned int item : GetShownItems(tone))
            InsertListViewItem(item);
    }
    window.SetToolTip(ControlList, tone.IsList() ? ListHint : ToneHint);
    if (list->GetSelection().empty() || !isOfOneKind)
        list->SetCurrent(std::min(place, list->GetCount() - 1)); // so that a key has something to step
    if (!missing->empty())                                       // once the window shows the rows
        window.GetToolkit().Post([missing = missing] { ShowNotices(std::exchange(*missing, {})); });
}

void ToneRows::InsertListViewItem(unsigned int item) {
    if (tone.IsList()) {
        *missing = ShowListRows(*list, tone.GetListPath(), item);
        return;
    }
    list->AppendRow(tone.GetItemName(item), item);
    UpdateListViewItem(item, list->GetCount() - 1);
}

void ToneRows::UpdateListViewItem(unsigned int item, int row) {
    if (tone.IsList())
        return;
    list->SetText(row, 1, tone.GetItemValue(item));
    const bool isShaded = item < ItemDuration && item % 2 != 0; // every second component
    const std::string more = DescribeItemValue(tone, item);
    list->SetLook(row, {.shade = isShaded ? LRowShade::Shaded : LRowShade::Plain,
                        .toolTip = more + (more.empty() ? "" : "\n") + ToneHint});
}

bool ToneRows::IncreaseListViewData(int count) {
    return StepSelectedItems([this, count, step = ReadFrequencyStep()](unsigned int item) {
        for (int i = 0; i < count; ++i)
            tone.IncreaseItem(item, step);
    });
}

bool ToneRows::DecreaseListViewData(int count) {
    return StepSelectedItems([this, count, step = ReadFrequencyStep()](unsigned int item) {
        for (int i = 0; i < count; ++i)
            tone.DecreaseItem(item, step);
    });
}

bool ToneRows::IncreaseListViewDataLarge() {
    return StepSelectedItems([this](unsigned int item) { tone.IncreaseItemLarge(item); });
}

bool ToneRows::DecreaseListViewDataLarge() {
    return StepSelectedItems([this](unsigned int item) { tone.DecreaseItemLarge(item); });
}

bool ToneRows::StepSelectedItems(const std::function<void(unsigned int)>& step) {
    if (tone.IsList())
        return false; // its length follows from the list
    for (const int row : list->GetSelection()) {
        const unsigned int item = list->GetData(row);
        step(item);
        UpdateListViewItem(item, row);
    }
    return !list->GetSelection().empty();
}

LEntryRules ToneRows::MakeEntryRules(unsigned int item) {
    const int highestHz = GetQuality().GetHighestFrequency();
    const auto read = [this, item, highestHz](const std::string& text) {
        const TypedItem typed = ReadTypedItem(tone, item, text, highestHz);
        return LEntryReading{.isTaken = !typed.value.empty(), .words = typed.words};
    };
    const auto step = [this, item, highestHz, byStep = ReadFrequencyStep()](const std::string& text,
                                                                            int steps) {
        SonvireData stepped = tone;
        static_cast<void>(
            stepped.SetItemValue(item, ReadTypedItem(tone, item, text, highestHz).value.c_str()));
        for (int i = 0; i < std::abs(steps); ++i)
            steps > 0 ? stepped.IncreaseItem(item, byStep) : stepped.DecreaseItem(item, byStep);
        return stepped.GetItemValue(item);
    };
    return {.place = {}, .input = DescribeItemInput(item, highestHz), .read = read, .step = step};
}

/// The rows that are asked for: without one that only names the waveform.
std::vector<int> ToneRows::GetRowsWithValue() const {
    std::vector<int> rows = list->GetSelection();
    std::erase_if(rows, [this](int row) { return tone.GetItemValue(list->GetData(row)).empty(); });
    return rows;
}

bool ToneRows::SetTypedItem(int row, const std::string& text) {
    const unsigned int item = list->GetData(row);
    const TypedItem typed = ReadTypedItem(tone, item, text, GetQuality().GetHighestFrequency());
    if (typed.value.empty())
        return false;
    static_cast<void>(tone.SetItemValue(item, typed.value.c_str())); // what it refuses was not typed
    UpdateListViewItem(item, row);
    return true;
}

/// Takes the rows out for which the text can be meant as well.
bool ToneRows::SetAlike(std::vector<int>& rows, unsigned int item, const std::string& text) {
    return std::erase_if(rows, [&](int row) {
               return AreItemsAlike(item, list->GetData(row)) && SetTypedItem(row, text);
           }) > 0;
}

bool ToneRows::ChangeListViewData() {
    bool changed = false;
    std::vector<int> rows = GetRowsWithValue();
    const std::size_t count = rows.size();
    while (!rows.empty()) {
        const int row = rows.front();
        rows.erase(rows.begin());
        const unsigned int item = list->GetData(row);
        LEntryRules rules = MakeEntryRules(item);
        rules.place = count > 1 ? std::to_string(count - rows.size()) + " of " + std::to_string(count) : "";
        rules.offersRest = !rows.empty();
        LNumericEdit box("Edit Value", tone.GetItemName(item), tone.GetItemValue(item), std::move(rules));
        if (!box.RunModal(window))
            break;
        if (tone.IsList() || list->GetData(row) != item)
            break; // meanwhile a document has arrived
        // What is left as it stands there is not rounded to it.
        const bool typed = box.GetEntry() != tone.GetItemValue(item);
        changed = (typed && SetTypedItem(row, box.GetEntry())) || changed;
        if (box.IsForTheRest())
            changed = SetAlike(rows, item, box.GetEntry()) || changed;
    }
    return changed;
}
