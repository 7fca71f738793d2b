#pragma once

#include <memory>
#include <span>
#include <string>

/// One row of a flat menu table:
///
/// | id | text | what it is |
/// |---|---|---|
/// | -1 | yes | opens a menu, or a submenu within one |
/// | -1 | none | closes the innermost one |
/// | 0 | none | a separator |
/// | below -1 | yes | an item with a check mark; its command is the absolute value |
/// | above 0 | yes | an item |
struct LMenuEntry {
    int id;
    const char* text = nullptr;
};

/// The toolkit's side of a menu. It is built from its first entry to its last; ids that it does not have are
/// ignored.
class LMenuPeer {
public:
    virtual ~LMenuPeer() = default;

    virtual void OpenSubmenu(const std::string& text) = 0;
    virtual void CloseSubmenu() = 0;
    virtual void AddSeparator() = 0;
    virtual void AddItem(int id, const std::string& text) = 0;

    /// A submenu of which no item is enabled can't be opened.
    virtual void Enable(int id, bool enabled) = 0;
    virtual void SetCheck(int id, bool checked) = 0;
    /// Puts the one radio mark of the items from first to last on `marked`.
    virtual void SetRadio(int first, int last, int marked) = 0;
    /// Renames an item; one without a text is not shown.
    virtual void SetText(int id, const std::string& text) = 0;
    /// Shows which key does the same.
    virtual void SetKeyText(int id, const std::string& key) = 0;

    /// Shows a pop-up menu until the user has chosen; returns the item's id, 0 for none. A menu bar returns
    /// 0.
    virtual int Choose() = 0;
};

/// A menu bar or a pop-up menu: entries with ids, each enabled or not and marked or not. What the user
/// chooses comes as a command of the window (menu bar) or as the result of `Choose`, which shows the pop-up
/// menu at the pointer.
class LMenu {
public:
    LMenu(std::unique_ptr<LMenuPeer> menuPeer, std::span<const LMenuEntry> entries);

    void Enable(int id, bool enabled) { peer->Enable(id, enabled); }
    void EnableRange(int first, int last, bool enabled);
    void SetCheck(int id, bool checked) { peer->SetCheck(id, checked); }
    void SetRadio(int first, int last, int marked) { peer->SetRadio(first, last, marked); }
    void SetKeyText(int id, const std::string& key) { peer->SetKeyText(id, key); }
    /// Renames an item; one without a text is neither shown nor enabled.
    void SetText(int id, const std::string& text);

    int Choose() { return peer->Choose(); }

private:
    std::unique_ptr<LMenuPeer> peer;
};
