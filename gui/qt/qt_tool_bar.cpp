#include "gui/qt/qt_tool_bar.h"

#include "gui/qt/qt_icon.h"
#include "gui/qt/qt_text.h"

#include <QAction>
#include <QToolButton>

void LQtToolBar::AddItem(const LToolBarItem& item) {
    if (item.kind == LToolBarItemKind::Separator) {
        bar->addSeparator();
        return;
    }
    const QString label = QString::fromUtf8(item.label), tip = QString::fromUtf8(item.toolTip);
    QAction* action = bar->addAction(MakeIcon(item.icon), label.isEmpty() ? tip : label);
    action->setToolTip(tip);
    action->setCheckable(item.kind != LToolBarItemKind::Button);
    actions[item.command] = action;
    QWidget* button = bar->widgetForAction(action);
    button->setAccessibleName(label.isEmpty() ? tip : label);
    button->setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard where it is
    QObject::connect(action, &QAction::triggered, action,
                     [this, command = item.command] { events.ItemUsed(command); });
}

QAction* LQtToolBar::Find(int command) const {
    const auto found = actions.find(command);
    return found == actions.end() || !bar ? nullptr : found->second;
}

void LQtToolBar::Enable(int command, bool enabled) {
    if (QAction* action = Find(command))
        action->setEnabled(enabled);
}

void LQtToolBar::SetPressed(int command, bool pressed) {
    if (QAction* action = Find(command))
        action->setChecked(pressed);
}

void LQtToolBar::SetToolTip(int command, const std::string& text) {
    if (QAction* action = Find(command))
        action->setToolTip(ToQt(text));
}

void LQtToolBar::PassFocus(int from, int to) {
    const QWidget* before = bar ? bar->widgetForAction(Find(from)) : nullptr;
    if (before && before->hasFocus())
        bar->widgetForAction(Find(to))->setFocus();
}
