#pragma once

#include "gui/menu.h"
#include "gui/qt/qt_letters.h"

#include <QMenu>
#include <QPoint>

#include <map>
#include <vector>

class LWindowEvents;
class QActionGroup;
class QMenuBar;

/// A menu bar or a pop-up menu. Every text gets a letter of its menu, so that the keyboard reaches it.
class LQtMenu : public LMenuPeer {
public:
    /// A pop-up menu that appears at this place of the screen.
    explicit LQtMenu(const QPoint& screenPlace) : place(screenPlace), open{&popup} {}
    /// A menu bar, which outlives this; what the user chooses goes to the window.
    LQtMenu(QMenuBar& menuBar, LWindowEvents& windowEvents) : bar(&menuBar), events(&windowEvents) {}

    void OpenSubmenu(const std::string& text) override;
    void CloseSubmenu() override;
    void AddSeparator() override;
    void AddItem(int id, const std::string& text) override;
    void Enable(int id, bool enabled) override;
    void SetCheck(int id, bool checked) override;
    void SetRadio(int first, int last, int marked) override;
    void SetText(int id, const std::string& text) override;
    void SetKeyText(int id, const std::string& key) override;
    int Choose() override;

private:
    QString WithLetter(const std::string& text);
    QAction* Find(int id) const;
    static void EnableMenuOf(const QAction& item);
    void Mark(QAction* action, bool marked);
    void RestoreMarks();

    QMenu popup;
    QMenuBar* bar = nullptr;
    LWindowEvents* events = nullptr;
    QPoint place;
    std::vector<QMenu*> open; ///< from the outermost to the one that is being built
    std::map<int, QAction*> actions;
    std::map<QMenu*, LQtLetters> letters;
    std::map<QAction*, bool> marks;
};
