#pragma once

#include "gui/tool_bar.h"

#include <QPointer>
#include <QToolBar>

#include <map>
#include <set>

/// A tool bar as all of a window look, one below the other as one family.
QToolBar* MakeToolBar(QWidget* parent);

/// A tool bar's peer. The bar may go before it does.
class LQtToolBar : public LToolBarPeer {
public:
    LQtToolBar(QToolBar& toolBar, LToolBarEvents& toolBarEvents);

    void AddItem(const LToolBarItem& item) override;
    void Enable(int command, bool enabled) override;
    void SetPressed(int command, bool pressed) override;
    void SetToolTip(int command, const std::string& text) override;
    void PassFocus(int from, int to) override;

private:
    QAction* Find(int command) const;

    QPointer<QToolBar> bar;
    LToolBarEvents& events;
    std::map<int, QAction*> actions;
    std::set<QAction*> lamps;
};
