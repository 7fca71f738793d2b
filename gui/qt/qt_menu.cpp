#include "gui/qt/qt_menu.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_text.h"
#include "gui/window_peer.h"

#include <QActionGroup>
#include <QMenuBar>

#include <algorithm>

QString LQtMenu::WithLetter(const std::string& text) {
    return letters[open.empty() ? nullptr : open.back()].Mark(ToQt(text));
}

void LQtMenu::OpenSubmenu(const std::string& text) {
    const QString label = WithLetter(text);
    open.push_back(open.empty() ? bar->addMenu(label) : open.back()->addMenu(label));
}

void LQtMenu::CloseSubmenu() {
    if (!open.empty())
        open.pop_back();
}

void LQtMenu::AddSeparator() {
    if (!open.empty())
        open.back()->addSeparator();
}

void LQtMenu::AddItem(int id, const std::string& text) {
    if (open.empty())
        return;
    QAction* action = open.back()->addAction(WithLetter(text));
    action->setData(id);
    actions[id] = action;
    if (!events)
        return;
    QObject::connect(action, &QAction::triggered, action, [this, id] {
        RestoreMarks();
        events->ControlUsed(id);
    });
}

/// Choosing an item has changed the marks at once; where they stand is for the window to say.
void LQtMenu::RestoreMarks() {
    for (const auto& [action, marked] : marks)
        action->setChecked(marked);
}

QAction* LQtMenu::Find(int id) const {
    const auto found = actions.find(id);
    return found == actions.end() ? nullptr : found->second;
}

void LQtMenu::Enable(int id, bool enabled) {
    QAction* action = Find(id);
    if (!action)
        return;
    action->setEnabled(enabled);
    EnableMenuOf(*action);
}

/// A menu within another one opens where there is something to choose in it.
void LQtMenu::EnableMenuOf(const QAction& item) {
    const auto* menu = qobject_cast<QMenu*>(item.parent());
    if (!qobject_cast<QMenu*>(menu->parent()))
        return;
    const QList<QAction*> all = menu->actions();
    menu->menuAction()->setEnabled(std::any_of(all.begin(), all.end(), [](const QAction* each) {
        return !each->isSeparator() && each->isEnabled() && each->isVisible();
    }));
}

void LQtMenu::Mark(QAction* action, bool marked) {
    action->setCheckable(true);
    action->setChecked(marked);
    marks[action] = marked;
}

void LQtMenu::SetCheck(int id, bool checked) {
    if (QAction* action = Find(id))
        Mark(action, checked);
}

void LQtMenu::SetRadio(int first, int last, int marked) {
    QActionGroup* group = Find(first) ? Find(first)->actionGroup() : nullptr;
    for (int id = first; id <= last; ++id) {
        QAction* action = Find(id);
        if (!action)
            continue;
        if (!group) {
            group = MakeChild<QActionGroup>(action);
            group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
        }
        group->addAction(action);
        Mark(action, id == marked);
    }
}

void LQtMenu::SetText(int id, const std::string& text) {
    QAction* action = Find(id);
    if (!action)
        return;
    action->setVisible(!text.empty());
    action->setText('&' + ToQt(text).replace('&', "&&"));
    EnableMenuOf(*action);
}

void LQtMenu::SetKeyText(int id, const std::string& key) {
    if (QAction* action = Find(id))
        action->setText(action->text().section('\t', 0, 0) + '\t' + ToQt(key));
}

int LQtMenu::Choose() {
    const QAction* chosen = bar ? nullptr : popup.exec(place);
    return chosen ? chosen->data().toInt() : 0;
}
