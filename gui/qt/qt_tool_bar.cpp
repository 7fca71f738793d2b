#include "gui/qt/qt_tool_bar.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_icon.h"
#include "gui/qt/qt_text.h"

#include <QAction>
#include <QToolButton>

namespace {

constexpr QSize IconSize(22, 22); // of the grid that the pictures are drawn on

/// On the window's own background: the panels and rules that some themes draw would part bars that stand
/// together.
class LQtPlainToolBar : public QToolBar {
public:
    using QToolBar::QToolBar;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {}
};

/// Of a lit lamp, which is read although it can't be pressed.
void ShowDisabledLabel(QWidget& button, bool shown) {
    QPalette palette;
    if (shown)
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, palette.color(QPalette::ButtonText));
    button.setPalette(palette);
}

} // namespace

QToolBar* MakeToolBar(QWidget* parent) {
    auto* bar = MakeChild<LQtPlainToolBar>(parent);
    bar->setIconSize(IconSize);
    bar->setMovable(false);
    bar->setFloatable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    return bar;
}

LQtToolBar::LQtToolBar(QToolBar& toolBar, LToolBarEvents& toolBarEvents)
    : bar(&toolBar),
      events(toolBarEvents) {
    if (auto* rest = bar->findChild<QToolButton*>("qt_toolbar_ext_button"))
        rest->setAccessibleName("More items");
}

void LQtToolBar::AddItem(const LToolBarItem& item) {
    if (item.kind == LToolBarItemKind::Separator) {
        bar->addSeparator();
        return;
    }
    const QString label = QString::fromUtf8(item.label), tip = QString::fromUtf8(item.toolTip);
    const bool lamp = item.kind == LToolBarItemKind::Lamp;
    const QIcon icon = MakeIcon(item.icon, lamp ? LIconLook::Lamp : LIconLook::Usual);
    QAction* action = bar->addAction(icon, label.isEmpty() ? tip : label);
    if (lamp)
        lamps.insert(action);
    action->setToolTip(tip);
    action->setCheckable(!lamp && item.kind != LToolBarItemKind::Button);
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
    QAction* action = Find(command);
    if (!action)
        return;
    if (lamps.contains(action)) {
        action->setCheckable(pressed); // a dark one is a button, which a press does not check
        ShowDisabledLabel(*bar->widgetForAction(action), pressed);
    }
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
