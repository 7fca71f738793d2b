#pragma once

#include "gui/list_view_peer.h"
#include "gui/main_window_peer.h"

#include <functional>
#include <map>

/// A list as the user sees it.
struct MemoryList {
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
    std::vector<int> selection;
    int current = -1;
    bool draggable = false;            ///< rows, and files from elsewhere
    LListViewEvents* events = nullptr; ///< of the list's owner, for the user's actions

    /// The user selects rows.
    void Select(const std::vector<int>& chosen);
};

/// A control as the user sees it.
struct MemoryControl {
    LControlKind kind{};
    LRect place;
    std::string text;
    std::string toolTip;
    bool enabled = true;
    int value = 0;
    bool held = false; ///< a slider, by the user
    int least = 0;
    int most = 0;
    std::vector<std::string> choices;
    std::vector<int> levels;
    MemoryList list;
};

class MemoryControls : public LControlsPeer {
public:
    std::map<int, MemoryControl> controls;
    int focus = 0;

    void Add(const LControlLayout& control) override;
    void Place(int id, const LRect& rect) override;
    LRect GetPlace(int id) const override;
    void SetText(int id, const std::string& text) override;
    std::string GetText(int id) const override;
    void Enable(int id, bool enabled) override;
    void SetToolTip(int id, const std::string& text) override;
    void SetFocus(int id) override { focus = id; }
    void SetRange(int id, int least, int most) override;
    void SetValue(int id, int value) override;
    int GetValue(int id) const override;
    bool IsHeld(int id) const override { return controls.at(id).held; }
    void SetChoices(int id, const std::vector<std::string>& choices) override;
    void SetLevels(int id, const std::vector<int>& decibels) override;
    std::unique_ptr<LListViewPeer> CreateListViewPeer(int id, LListViewEvents& events) override;

private:
    int HolderOf(int id) const;
    MemoryControl* Find(int id);
    const MemoryControl* Find(int id) const;

    std::map<int, int> numberOfText; ///< the number edit that a number text belongs to
    int lastNumberEdit = 0;
};

/// A menu entry as the user sees it, by its path such as "Tone/Number of Tones/3".
struct MemoryMenuItem {
    std::string path;
    bool enabled = true;
    bool hasCheck = false; ///< shows a box to check
    bool marked = false;   ///< by a check or a radio mark
    std::string key;
};

struct MemoryMenu {
    std::map<int, MemoryMenuItem> items;
    std::vector<std::string> lines; ///< every path in order, "-" for a separator

    /// What the user chooses, 0 for nothing; only where it can be chosen.
    int Pick(int id) const;
};

/// A tool bar as the user sees it.
struct MemoryToolBar {
    struct Item {
        LToolBarItem row;
        bool enabled = true;
        bool pressed = false;
    };
    std::vector<Item> items;
    LToolBarEvents* events = nullptr;

    const Item& operator[](int command) const;
    /// The user presses an item, if it can be pressed.
    void Press(int command);
};

/// A peer that fills in `menu`; `choose` answers for a pop-up menu.
std::unique_ptr<LMenuPeer> MakeMemoryMenuPeer(MemoryMenu& menu, std::function<int()> choose);

/// What the user can do to any window.
class MemoryUser {
public:
    explicit MemoryUser(LWindowEvents& windowEvents) : events(windowEvents) {}

    MemoryControls controls;

    /// Presses a button, or uses any other control, of this id; nothing happens where it is disabled.
    void Press(int id);
    void Check(int id, bool checked);
    /// Moves a slider or a number, or picks a choice.
    void Move(int id, int value);
    void Type(int id, const std::string& text);
    bool Key(unsigned virtualKey, char32_t character = 0, bool repeated = false);
    void Drop(const std::vector<std::string>& paths) { events.FilesDropped(paths); }
    void Resize(int width, int height) { events.Resized(width, height); }
    void CloseWindow() { events.CloseAsked(); }

protected:
    LWindowEvents& events;
};

class MemoryDialog : public LDialogPeer, public MemoryUser {
public:
    using MemoryUser::MemoryUser;

    std::string caption;
    std::function<void(MemoryDialog&)> script;
    bool shown = false;
    bool ended = false;
    bool ok = false;

    LControlsPeer& Controls() override { return controls; }
    void SetCaption(const std::string& text) override { caption = text; }
    bool RunModal() override;
    void End(bool withOk) override;
    void ShowModal() override { shown = true; }
};

class MemoryMainWindow : public LMainWindowPeer, public MemoryUser {
public:
    MemoryMainWindow(LWindowEvents& windowEvents, MemoryMainWindow*& registered);
    ~MemoryMainWindow() override;

    std::string caption;
    LWindowGeometry geometry;
    bool visible = false;
    int raised = 0;
    MemoryMenu menu;
    MemoryToolBar toolBar;
    std::map<int, MemoryToolBar> smallToolBars;
    std::vector<LStatusItem> statusItems;

    /// Chooses a menu entry; nothing happens where it is disabled.
    void Choose(int command);

    LControlsPeer& Controls() override { return controls; }
    void SetCaption(const std::string& text) override { caption = text; }
    void SetGeometry(const LWindowGeometry& wanted) override { geometry = wanted; }
    LWindowGeometry GetGeometry() const override { return geometry; }
    void Show() override { visible = true; }
    void Raise() override { ++raised; }
    void Hide() override { visible = false; }
    std::unique_ptr<LMenuPeer> CreateMenuBar() override;
    std::unique_ptr<LToolBarPeer> CreateToolBar(LToolBarEvents& barEvents) override;
    std::unique_ptr<LToolBarPeer> CreateSmallToolBar(int control, LToolBarEvents& barEvents) override;
    void AddStatusItem(const LStatusItem& item) override;

private:
    MemoryMainWindow*& self; ///< how a test finds the window
};
