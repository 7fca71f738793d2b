#include "gui/qt/qt_spoken_value.h"

#include <QAbstractSlider>
#include <QAccessibleWidget>

#include <memory>

namespace {

class SpokenValueAccess : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    SpokenValueAccess(QWidget* widget, LQtSpokenValue& valueOf)
        : QAccessibleWidget(widget,
                            qobject_cast<QAbstractSlider*>(widget) ? QAccessible::Slider : QAccessible::Dial),
          value(valueOf) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override {
        return QAccessibleWidget::text(kind == QAccessible::Value ? QAccessible::Description : kind);
    }
    QVariant currentValue() const override { return value.GetSpoken().value; }
    void setCurrentValue(const QVariant& wanted) override { value.SetSpoken(wanted.toDouble()); }
    QVariant minimumValue() const override { return value.GetSpoken().least; }
    QVariant maximumValue() const override { return value.GetSpoken().most; }
    QVariant minimumStepSize() const override { return 1; }

private:
    LQtSpokenValue& value;
};

QAccessibleInterface* MakeAccess(const QString& /*className*/, QObject* object) {
    auto* value = dynamic_cast<LQtSpokenValue*>(object);
    return value ? std::make_unique<SpokenValueAccess>(qobject_cast<QWidget*>(object), *value).release()
                 : nullptr;
}

} // namespace

void LQtSpokenValue::Install() {
    QAccessible::installFactory(MakeAccess);
}
