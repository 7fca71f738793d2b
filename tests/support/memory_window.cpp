#include "support/memory_window.h"

#include <algorithm>

namespace {

/// Peers end with the object that owns them, what they show with the window; so they only refer to it.
class MemoryListPeer : public LListViewPeer {
public:
    explicit MemoryListPeer(MemoryList& shown) : list(shown) {}

    void SetColumns(const std::vector<std::string>& titles) override { list.columns = titles; }
    void InsertRow(int row, const std::vector<std::string>& texts) override {
        list.rows.insert(list.rows.begin() + row, texts);
    }
    void DeleteRow(int row) override { list.rows.erase(list.rows.begin() + row); }
    void SetText(int row, int column, const std::string& text) override {
        list.rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)) = text;
    }
    void SetSelection(const std::vector<int>& rows, int current) override {
        list.selection = rows;
        std::sort(list.selection.begin(), list.selection.end());
        list.current = current;
    }
    void EnableDragging() override { list.draggable = true; }

private:
    MemoryList& list;
};

class MemoryToolBarPeer : public LToolBarPeer {
public:
    MemoryToolBarPeer(MemoryToolBar& shown, LToolBarEvents& events) : bar(shown) { bar.events = &events; }

    void AddItem(const LToolBarItem& item) override { bar.items.push_back({.row = item}); }
    void Enable(int command, bool enabled) override {
        for (MemoryToolBar::Item& item : bar.items)
            item.enabled = item.row.command == command ? enabled : item.enabled;
    }
    void SetPressed(int command, bool pressed) override {
        for (MemoryToolBar::Item& item : bar.items)
            item.pressed = item.row.command == command ? pressed : item.pressed;
    }

private:
    MemoryToolBar& bar;
};

class MemoryMenuPeer : public LMenuPeer {
public:
    MemoryMenuPeer(MemoryMenu& shown, std::function<int()> chosen) : menu(shown), choose(std::move(chosen)) {}

    void OpenSubmenu(const std::string& text) override { open.push_back(PathOf(text)); }
    void CloseSubmenu() override { open.pop_back(); }
    void AddSeparator() override { menu.lines.emplace_back("-"); }
    void AddItem(int id, const std::string& text) override {
        menu.lines.push_back(PathOf(text));
        menu.items[id].path = PathOf(text);
    }
    void Enable(int id, bool enabled) override {
        Change(id, [=](auto& item) { item.enabled = enabled; });
    }
    void SetCheck(int id, bool checked) override {
        Change(id, [=](auto& item) { item.hasCheck = true, item.marked = checked; });
    }
    void SetRadio(int first, int last, int marked) override {
        for (int id = first; id <= last; ++id)
            Change(id, [=](auto& item) { item.marked = id == marked; });
    }
    void SetKeyText(int id, const std::string& key) override {
        Change(id, [&key](auto& item) { item.key = key; });
    }
    int Choose() override { return choose(); }

private:
    std::string PathOf(const std::string& text) const {
        return open.empty() ? text : open.back() + "/" + text;
    }
    void Change(int id, const std::function<void(MemoryMenuItem&)>& change) {
        if (const auto found = menu.items.find(id); found != menu.items.end())
            change(found->second);
    }

    MemoryMenu& menu;
    std::function<int()> choose;
    std::vector<std::string> open;
};

bool IsNumberKind(LControlKind kind) {
    return kind != LControlKind::Text && kind != LControlKind::Link && kind != LControlKind::Edit;
}

} // namespace

std::unique_ptr<LMenuPeer> MakeMemoryMenuPeer(MemoryMenu& menu, std::function<int()> choose) {
    menu = {};
    return std::make_unique<MemoryMenuPeer>(menu, std::move(choose));
}

int MemoryMenu::Pick(int id) const {
    const auto found = items.find(id);
    return found != items.end() && found->second.enabled ? id : 0;
}

void MemoryList::Select(const std::vector<int>& chosen) {
    selection = chosen;
    std::sort(selection.begin(), selection.end());
    current = chosen.empty() ? -1 : chosen.back();
    events->SelectionChanged(selection, current);
}

void MemoryControls::Add(const LControlLayout& control) {
    if (control.kind == LControlKind::NumberEdit)
        lastNumberEdit = control.id;
    if (control.kind == LControlKind::NumberText)
        numberOfText[control.id] = lastNumberEdit;
    MemoryControl& added = controls[control.id];
    added.kind = control.kind;
    added.place = control.rect;
    added.text = control.text;
}

MemoryControl* MemoryControls::Find(int id) {
    const auto found = controls.find(id);
    return found == controls.end() ? nullptr : &found->second;
}

const MemoryControl* MemoryControls::Find(int id) const {
    const auto found = controls.find(id);
    return found == controls.end() ? nullptr : &found->second;
}

void MemoryControls::Place(int id, const LRect& rect) {
    if (MemoryControl* control = Find(id))
        control->place = rect;
}

LRect MemoryControls::GetPlace(int id) const {
    const MemoryControl* control = Find(id);
    return control ? control->place : LRect{};
}

/// A number edit's text is held under its own id, whichever of its two ids is used.
int MemoryControls::HolderOf(int id) const {
    const auto number = numberOfText.find(id);
    return number == numberOfText.end() ? id : number->second;
}

void MemoryControls::SetText(int id, const std::string& text) {
    if (MemoryControl* control = Find(HolderOf(id)))
        control->text = text;
}

std::string MemoryControls::GetText(int id) const {
    const MemoryControl* control = Find(HolderOf(id));
    return control ? control->text : std::string();
}

void MemoryControls::Enable(int id, bool enabled) {
    if (MemoryControl* control = Find(id))
        control->enabled = enabled;
}

void MemoryControls::SetToolTip(int id, const std::string& text) {
    if (MemoryControl* control = Find(id))
        control->toolTip = text;
}

void MemoryControls::SetRange(int id, int least, int most) {
    if (MemoryControl* control = Find(id))
        control->least = least, control->most = most;
}

void MemoryControls::SetValue(int id, int value) {
    MemoryControl* control = Find(id);
    if (!control || !IsNumberKind(control->kind))
        return;
    if (control->kind == LControlKind::Radio && value != 0)
        for (auto& [otherId, other] : controls)
            other.value = other.kind == LControlKind::Radio ? 0 : other.value;
    if (control->kind == LControlKind::NumberEdit)
        control->text = std::to_string(value);
    control->value = value;
}

int MemoryControls::GetValue(int id) const {
    const MemoryControl* control = Find(id);
    if (!control)
        return 0;
    return control->kind == LControlKind::NumberEdit ? std::atoi(control->text.c_str()) : control->value;
}

void MemoryControls::SetChoices(int id, const std::vector<std::string>& choices) {
    if (MemoryControl* control = Find(id))
        control->choices = choices, control->value = 0;
}

void MemoryControls::SetLevels(int id, const std::vector<int>& decibels) {
    if (MemoryControl* control = Find(id))
        control->levels = decibels;
}

std::unique_ptr<LListViewPeer> MemoryControls::CreateListViewPeer(int id, LListViewEvents& events) {
    MemoryList& list = controls.at(id).list;
    list.events = &events;
    return std::make_unique<MemoryListPeer>(list);
}

const MemoryToolBar::Item& MemoryToolBar::operator[](int command) const {
    return *std::find_if(items.begin(), items.end(),
                         [command](const Item& item) { return item.row.command == command; });
}

void MemoryToolBar::Press(int command) {
    if ((*this)[command].enabled)
        events->ItemUsed(command);
}

void MemoryUser::Press(int id) {
    if (controls.controls.at(id).enabled)
        events.ControlUsed(id);
}

void MemoryUser::Check(int id, bool checked) {
    if (!controls.controls.at(id).enabled)
        return;
    controls.SetValue(id, checked ? 1 : 0);
    events.ControlUsed(id);
}

void MemoryUser::Move(int id, int value) {
    controls.SetValue(id, value);
    events.ControlUsed(id);
}

void MemoryUser::Type(int id, const std::string& text) {
    if (controls.controls.at(id).enabled)
        controls.SetText(id, text);
}

bool MemoryUser::Key(unsigned virtualKey, char32_t character, bool repeated) {
    return events.KeyPressed({.virtualKey = virtualKey, .character = character, .repeated = repeated});
}

bool MemoryDialog::RunModal() {
    shown = true;
    if (script)
        script(*this);
    if (!ended)
        CloseWindow();
    return ok;
}

void MemoryDialog::End(bool withOk) {
    ended = true;
    ok = withOk;
}

MemoryMainWindow::MemoryMainWindow(LWindowEvents& windowEvents, MemoryMainWindow*& registered)
    : MemoryUser(windowEvents),
      self(registered) {
    self = this;
}

MemoryMainWindow::~MemoryMainWindow() {
    self = nullptr;
}

void MemoryMainWindow::Choose(int command) {
    if (menu.Pick(command) != 0)
        events.ControlUsed(command);
}

std::unique_ptr<LMenuPeer> MemoryMainWindow::CreateMenuBar() {
    return MakeMemoryMenuPeer(menu, [] { return 0; });
}

std::unique_ptr<LToolBarPeer> MemoryMainWindow::CreateToolBar(LToolBarEvents& barEvents) {
    return std::make_unique<MemoryToolBarPeer>(toolBar, barEvents);
}

std::unique_ptr<LToolBarPeer> MemoryMainWindow::CreateSmallToolBar(int control, LToolBarEvents& barEvents) {
    controls.controls[control].place.height = 26;
    return std::make_unique<MemoryToolBarPeer>(smallToolBars[control], barEvents);
}

void MemoryMainWindow::AddStatusItem(const LStatusItem& item) {
    statusItems.push_back(item);
    MemoryControl& control = controls.controls[item.id];
    control.kind = item.kind == LStatusKind::Text ? LControlKind::Text : LControlKind::Progress;
    control.toolTip = item.toolTip;
}
