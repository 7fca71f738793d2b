#include "gui/qt/qt_status_widget.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_level_meter.h"
#include "gui/status_bar.h"

#include <QComboBox>
#include <QLabel>
#include <QSlider>

namespace {

int WidthOf(const QWidget& widget, const char* text) {
    return widget.fontMetrics().horizontalAdvance(QString::fromUtf8(text));
}

QWidget* MakeLabel(const LStatusItem& item, QWidget* parent) {
    auto* label = MakeChild<QLabel>(parent);
    label->setTextFormat(Qt::PlainText);
    label->setMinimumWidth(WidthOf(*label, item.widestText));
    return label;
}

QWidget* MakeChooser(const LStatusItem& item, QWidget* parent) {
    auto* combo = MakeChild<QComboBox>(parent);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(static_cast<int>(qstrlen(item.widestText)));
    combo->setFocusPolicy(Qt::TabFocus);
    return combo;
}

QWidget* MakeSlider(QWidget* parent) {
    auto* slider = MakeChild<QSlider>(parent, Qt::Horizontal);
    slider->setFixedWidth(110);
    slider->setFocusPolicy(Qt::TabFocus);
    return slider;
}

} // namespace

QWidget* MakeStatusWidget(const LStatusItem& item, QWidget* statusBar) {
    switch (item.kind) {
    case LStatusKind::Text:
        return MakeLabel(item, statusBar);
    case LStatusKind::Level:
        return MakeChild<LQtLevelMeter>(statusBar);
    case LStatusKind::Chooser:
        return MakeChooser(item, statusBar);
    case LStatusKind::Slider:
        return MakeSlider(statusBar);
    }
    return nullptr;
}
