#include "gui/qt/qt_spoken_text.h"

#include "gui/qt/qt_link.h"
#include "gui/qt/qt_spoken_chooser.h"

#include <QAccessibleWidget>

#include <memory>

namespace {

/// The text has neither a cursor nor a selection.
class SpokenText : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    SpokenText(QWidget* widget, const LQtSpokenText& textOf, QAccessible::Role kind)
        : QAccessibleWidget(widget, kind),
          shown(textOf) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override {
        const QString own = QAccessibleWidget::text(kind);
        const bool isText = kind == QAccessible::Value || (kind == QAccessible::Name && own.isEmpty());
        return isText ? shown.GetSpoken() : own;
    }

    QString text(int start, int end) const override { return shown.GetSpoken().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(shown.GetSpoken().size()); }
    QRect characterRect(int /*offset*/) const override { return rect(); }
    int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
    QString attributes(int /*offset*/, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    int selectionCount() const override { return 0; }
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    void scrollToSubstring(int /*start*/, int /*end*/) override {}

private:
    const LQtSpokenText& shown;
};

class SpokenChooser : public SpokenText {
public:
    explicit SpokenChooser(LQtSpokenChooser* shown)
        : SpokenText(shown, *shown, QAccessible::ComboBox),
          chooser(shown) {}

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == showMenuAction())
            chooser->showPopup();
        else
            SpokenText::doAction(name);
    }

private:
    LQtSpokenChooser* chooser;
};

class SpokenLink : public QAccessibleWidget {
public:
    explicit SpokenLink(LQtLink* shown) : QAccessibleWidget(shown, QAccessible::Link), link(shown) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? link->GetLinkText() : QAccessibleWidget::text(kind);
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction())
            emit link->linkActivated({});
        else
            QAccessibleWidget::doAction(name);
    }

private:
    LQtLink* link;
};

QAccessibleInterface* MakeSpokenText(const QString& /*className*/, QObject* object) {
    if (auto* link = dynamic_cast<LQtLink*>(object))
        return std::make_unique<SpokenLink>(link).release();
    if (auto* chooser = dynamic_cast<LQtSpokenChooser*>(object))
        return std::make_unique<SpokenChooser>(chooser).release();
    const auto* shown = dynamic_cast<const LQtSpokenText*>(object);
    if (!shown)
        return nullptr;
    auto* widget = qobject_cast<QWidget*>(object);
    return std::make_unique<SpokenText>(widget, *shown, shown->GetRole()).release();
}

} // namespace

void LQtSpokenText::Install() {
    QAccessible::installFactory(MakeSpokenText);
}
