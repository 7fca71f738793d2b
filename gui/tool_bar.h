#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>

enum class LToolBarItemKind {
    Button,
    Lamp, ///< a button that looks lit while its state is set, as what it starts goes on; pressing it sets
          ///< none
    Separator,
    Radio,  ///< pressing it releases the radio items beside it
    Toggle, ///< pressing it switches it
};

/// One row of a tool bar's table.
struct LToolBarItem {
    LToolBarItemKind kind;
    int command = 0;
    const char* icon = ""; ///< the name of a picture that the toolkit has
    const char* label = "";
    const char* toolTip = ""; ///< also what a screen reader says of an item without a label
};

/// What the user does to a tool bar.
class LToolBarEvents {
public:
    virtual ~LToolBarEvents() = default;
    virtual void ItemUsed(int command) = 0;
};

/// The toolkit's side of a tool bar. It shows what it is told, and changes nothing by itself when an item is
/// used.
class LToolBarPeer {
public:
    virtual ~LToolBarPeer() = default;
    virtual void AddItem(const LToolBarItem& item) = 0;
    virtual void Enable(int command, bool enabled) = 0;
    virtual void SetPressed(int command, bool pressed) = 0;
    virtual void SetToolTip(int command, const std::string& text) = 0;
    /// Where the keyboard is on one item, it is on the other afterwards.
    virtual void PassFocus(int from, int to) = 0;
};

class LWindowEvents;

/// A row of items, each with a command: a button, a toggle or a radio item, which look pressed exactly when
/// their state is set. Using an item first brings its state up to date, then sends the command to the window.
class LToolBar : private LToolBarEvents {
public:
    LToolBar() = default;
    LToolBar(const LToolBar&) = delete;
    LToolBar& operator=(const LToolBar&) = delete;

    /// The table must outlive the tool bar.
    void Build(std::unique_ptr<LToolBarPeer> toolBarPeer, std::span<const LToolBarItem> table,
               LWindowEvents& window);
    /// What a peer sends its events to.
    LToolBarEvents& GetEvents() { return *this; }

    void Enable(int command, bool enabled);
    /// Enables an item and disables the other, which has been its counterpart: the keyboard follows.
    void EnableInsteadOf(int command, int other);
    /// Adds to the tool tip which key does the same.
    void ShowKey(int command, const std::string& key);
    void SetState(int command, bool set);
    bool GetState(int command) const;
    /// Sets one radio item and releases the others of its group, the radio items that stand beside it in one
    /// stretch.
    void SetRadio(int command);

private:
    void ItemUsed(int command) override;

    std::span<const LToolBarItem> items;
    std::map<int, bool> states;
    std::unique_ptr<LToolBarPeer> peer;
    LWindowEvents* events = nullptr;
};
