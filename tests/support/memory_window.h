#pragma once

#include "gui/main_window_peer.h"
#include "support/memory_controls.h"

#include <functional>

/// An entry of a menu or a tool bar as the user sees it.
struct MemoryItem {
    std::string path; ///< such as "Tone/Number of Tones/3"
    std::string text; ///< once it is renamed
    std::string key;
    bool enabled = true;
    bool marked = false; ///< by a check, a radio mark, or looking pressed
};

/// Entries by their commands.
class MemoryItems {
public:
    std::map<int, MemoryItem> items;

    const MemoryItem& operator[](int command) const { return items.at(command); }
    /// What the user chooses, 0 for nothing; only where it can be chosen.
    int Pick(int command) const {
        const auto found = items.find(command);
        return found != items.end() && found->second.enabled ? command : 0;
    }
    /// The commands that are, or are not, in a state.
    std::vector<int> With(bool MemoryItem::*state, bool set) const {
        std::vector<int> commands;
        for (const auto& [command, item] : items)
            if (item.*state == set)
                commands.push_back(command);
        return commands;
    }

protected:
    template <class T>
    void Set(int command, T MemoryItem::*field, const T& value) {
        if (const auto found = items.find(command); found != items.end())
            found->second.*field = value;
    }
};

class MemoryMenu : public LMenuPeer, public MemoryItems {
public:
    std::function<int(const MemoryMenu&)> choose; ///< returns for a pop-up menu

    void OpenSubmenu(const std::string& text) override { open.push_back(PathOf(text)); }
    void CloseSubmenu() override { open.pop_back(); }
    void AddSeparator() override {}
    void AddItem(int id, const std::string& text) override { items[id].path = PathOf(text); }
    void Enable(int id, bool enabled) override { Set(id, &MemoryItem::enabled, enabled); }
    void SetCheck(int id, bool checked) override { Set(id, &MemoryItem::marked, checked); }
    void SetRadio(int first, int last, int marked) override {
        for (int id = first; id <= last; ++id)
            SetCheck(id, id == marked);
    }
    void SetText(int id, const std::string& text) override { Set(id, &MemoryItem::text, text); }
    void SetKeyText(int id, const std::string& key) override { Set(id, &MemoryItem::key, key); }
    int Choose() override { return choose(*this); }

private:
    std::string PathOf(const std::string& text) const {
        return open.empty() ? text : open.back() + "/" + text;
    }
    std::vector<std::string> open;
};

class MemoryToolBar : public LToolBarPeer, public MemoryItems {
public:
    explicit MemoryToolBar(LToolBarEvents& barEvents) : events(barEvents) {}

    /// The user presses an item, if it can be pressed.
    void Press(int command) {
        if (Pick(command) != 0)
            events.ItemUsed(command);
    }

    void AddItem(const LToolBarItem& item) override {
        if (item.kind != LToolBarItemKind::Separator)
            items[item.command] = {};
    }
    void Enable(int command, bool enabled) override { Set(command, &MemoryItem::enabled, enabled); }
    void SetPressed(int command, bool pressed) override { Set(command, &MemoryItem::marked, pressed); }
    void SetToolTip(int command, const std::string& text) override { Set(command, &MemoryItem::key, text); }
    void PassFocus(int /*from*/, int /*to*/) override {}

private:
    LToolBarEvents& events;
};

/// Any window, and what the user can do to it.
template <class Peer>
class MemoryWindow : public Peer {
public:
    explicit MemoryWindow(LWindowEvents& windowEvents) : events(windowEvents) {}

    MemoryControls controls;
    std::string caption;
    LWindowDocument document;

    /// Presses a button, or uses any other control; as all that follows only where it is enabled.
    void Press(int id) {
        if (controls[id].enabled)
            events.ControlUsed(id);
    }
    /// Checks a box, moves a slider, picks a choice.
    void Set(int id, int value) {
        if (controls[id].enabled)
            controls.SetValue(id, value);
        Press(id);
    }
    void Type(int id, const std::string& text) {
        if (controls[id].enabled)
            controls.SetText(id, text);
        Press(id);
    }
    void Step(int id, int steps) { events.ValueStepped(id, steps); }
    bool Key(unsigned virtualKey, char32_t character = 0) {
        return events.KeyPressed({.virtualKey = virtualKey, .character = character});
    }
    void Drop(const std::vector<std::string>& paths) { events.FilesDropped(paths); }
    void CloseWindow() { events.CloseAsked(); }
    void Resize(int width, int height) { events.Resized(width, height); }

    LControlsPeer& Controls() override { return controls; }
    void SetCaption(const std::string& text) override { caption = text; }
    void SetDocument(const LWindowDocument& shown) override { document = shown; }

protected:
    LWindowEvents& events;
};

class MemoryDialog : public MemoryWindow<LDialogPeer> {
public:
    using MemoryWindow::MemoryWindow;

    std::function<void(MemoryDialog&)> script;
    bool ended = false;
    bool ok = false;

    bool RunModal() override {
        if (script)
            script(*this);
        if (!ended)
            CloseWindow();
        return ok;
    }
    void End(bool withOk) override {
        ended = true;
        ok = withOk;
    }
    void ShowModal() override {}
};

class MemoryMainWindow : public MemoryWindow<LMainWindowPeer> {
public:
    using MemoryWindow::MemoryWindow;

    LWindowGeometry geometry;
    std::string passing; ///< the last line that went by
    bool visible = false;
    int raised = 0;
    MemoryMenu* menu = nullptr;
    MemoryToolBar* toolBar = nullptr;
    MemoryToolBar* smallToolBar = nullptr;

    /// Chooses a menu entry; nothing happens where it is disabled.
    void Choose(int command) {
        if (menu->Pick(command) != 0)
            events.ControlUsed(command);
    }

    void SetGeometry(const LWindowGeometry& wanted) override { geometry = wanted; }
    LWindowGeometry GetGeometry() const override { return geometry; }
    void ShowPassing(const std::string& text) override { passing = text; }
    void Show() override { visible = true; }
    void Raise() override { ++raised; }
    void Hide() override { visible = false; }
    std::unique_ptr<LMenuPeer> CreateMenuBar() override { return Make(menu); }
    std::unique_ptr<LToolBarPeer> CreateToolBar(LToolBarEvents& barEvents) override {
        return Make(toolBar, barEvents);
    }
    std::unique_ptr<LToolBarPeer> CreateSmallToolBar(int control, LToolBarEvents& barEvents) override {
        controls.Add({control, {}, "", {}});
        return Make(smallToolBar, barEvents);
    }
    void AddStatusItem(const LStatusItem& item) override {
        controls.Add({item.id, {}, "", {}});
        controls.SetToolTip(item.id, item.toolTip);
    }

private:
    /// The window's owner has it, and the test sees it meanwhile.
    template <class T, class... Arguments>
    static std::unique_ptr<T> Make(T*& seen, Arguments&... arguments) {
        auto made = std::make_unique<T>(arguments...);
        seen = made.get();
        return made;
    }
};
