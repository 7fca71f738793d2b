#include "gui/qt/qt_spoken_slider.h"

#include <QAccessibleWidget>

#include <memory>

namespace {

class SpokenSlider : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit SpokenSlider(LQtSpokenSlider* shown)
        : QAccessibleWidget(shown, QAccessible::Slider),
          slider(shown) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override {
        return QAccessibleWidget::text(kind == QAccessible::Value ? QAccessible::Description : kind);
    }
    QVariant currentValue() const override { return slider->value(); }
    void setCurrentValue(const QVariant& value) override { slider->setValue(value.toInt()); }
    QVariant minimumValue() const override { return slider->minimum(); }
    QVariant maximumValue() const override { return slider->maximum(); }
    QVariant minimumStepSize() const override { return slider->singleStep(); }

private:
    LQtSpokenSlider* slider;
};

QAccessibleInterface* MakeSpokenSlider(const QString& /*className*/, QObject* object) {
    auto* slider = dynamic_cast<LQtSpokenSlider*>(object);
    return slider ? std::make_unique<SpokenSlider>(slider).release() : nullptr;
}

} // namespace

void LQtSpokenSlider::Install() {
    QAccessible::installFactory(MakeSpokenSlider);
}
