#include "gui/qt/qt_spoken_text.h"

#include "gui/qt/qt_link.h"

#include <QAccessibleWidget>
#include <QComboBox>
#include <QLabel>

#include <memory>

namespace {

/// The text has neither a cursor nor a selection.
class SpokenText : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    SpokenText(QWidget* widget, QAccessible::Role kind) : QAccessibleWidget(widget, kind) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? Shown() : QAccessibleWidget::text(kind);
    }

    QString text(int start, int end) const override { return Shown().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(Shown().size()); }
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

protected:
    virtual QString Shown() const { return static_cast<const QLabel*>(widget())->text(); }
};

/// Qt's own has the text as its name and leaves the rest to a label, which a status bar has no room for.
class SpokenChooser : public SpokenText {
public:
    explicit SpokenChooser(QComboBox* chooser) : SpokenText(chooser, QAccessible::ComboBox) {}

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == showMenuAction())
            Chooser()->showPopup();
        else
            SpokenText::doAction(name);
    }

private:
    QComboBox* Chooser() const { return static_cast<QComboBox*>(widget()); }
    QString Shown() const override { return Chooser()->currentText(); }
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
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || widget->accessibleName().isEmpty())
        return nullptr;
    if (auto* chooser = qobject_cast<QComboBox*>(widget))
        return std::make_unique<SpokenChooser>(chooser).release();
    return qobject_cast<QLabel*>(widget)
               ? std::make_unique<SpokenText>(widget, QAccessible::StaticText).release()
               : nullptr;
}

} // namespace

void InstallSpokenTexts() {
    QAccessible::installFactory(MakeSpokenText);
}
