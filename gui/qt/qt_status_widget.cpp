#include "gui/qt/qt_status_widget.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_icon.h"
#include "gui/qt/qt_level_meter.h"
#include "gui/qt/qt_spoken_chooser.h"
#include "gui/qt/qt_spoken_slider.h"
#include "gui/qt/qt_tabular_font.h"
#include "gui/status_bar.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QToolButton>
#include <QWheelEvent>

namespace {

constexpr int SliderWidth = 100, LeastSliderWidth = 50, LeastChooserWidth = 76;
constexpr int TextMargins = 4;

/// Keeps room for the widest text; a text that has less room than it needs ends in dots, but for one that
/// takes what the others leave: that one stands there whole or not at all.
class StatusLabel : public QLabel, public LQtSpokenText {
public:
    StatusLabel(const char* widestText, QWidget* parent) : QLabel(parent) {
        setTextFormat(Qt::PlainText);
        setFont(WithTabularFigures(font()));
        widest = fontMetrics().horizontalAdvance(QString::fromUtf8(widestText));
    }
    QString GetSpoken() const override { return text(); }
    QSize sizeHint() const override { return QLabel::sizeHint().expandedTo({widest, 0}); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const bool isWhole = fontMetrics().horizontalAdvance(text()) <= width();
        if (!isWhole && sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
            return;
        QPainter painter(this);
        painter.setLayoutDirection(layoutDirection());
        style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(),
                              fontMetrics().elidedText(text(), Qt::ElideRight, width()), foregroundRole());
    }

private:
    int widest;
};

/// Without the keyboard it leaves the wheel alone: a slip would send the sound elsewhere.
class StatusChooser : public LQtSpokenChooser {
public:
    using LQtSpokenChooser::LQtSpokenChooser;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        QStylePainter painter(this);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        const int room =
            style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this).width();
        option.currentText = Elide(option.currentText, room - TextMargins);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
    void wheelEvent(QWheelEvent* event) override {
        event->ignore();
        if (hasFocus())
            QComboBox::wheelEvent(event);
    }

private:
    /// What stands in brackets behind a name is said of it, and stays.
    QString Elide(const QString& text, int room) const {
        const qsizetype bracket = text.endsWith(')') ? text.lastIndexOf(" (") : text.size();
        const QString remark = bracket < 0 ? QString() : text.mid(bracket);
        const int left = room - fontMetrics().horizontalAdvance(remark);
        return fontMetrics().elidedText(text.chopped(remark.size()), Qt::ElideRight, left) + remark;
    }
};

class StatusSlider : public LQtSpokenSlider {
public:
    using LQtSpokenSlider::LQtSpokenSlider;

    QSize sizeHint() const override { return {SliderWidth, QSlider::sizeHint().height()}; }
    QSize minimumSizeHint() const override { return {LeastSliderWidth, QSlider::minimumSizeHint().height()}; }

protected:
    void mouseDoubleClickEvent(QMouseEvent* /*event*/) override { setValue(maximum()); }
};

class StatusToggle : public QToolButton {
public:
    StatusToggle(const std::string& picture, QWidget* parent)
        : QToolButton(parent),
          off(MakeIcon(picture)),
          on(MakeIcon(picture + "-on")) {
        setAutoRaise(true);
        setCheckable(true);
        setIcon(off);
    }

protected:
    void nextCheckState() override {} // the window says
    void checkStateSet() override { setIcon(isChecked() ? on : off); }

private:
    QIcon off, on;
};

/// Does without any room where there is none.
class StatusRemark : public StatusLabel {
public:
    using StatusLabel::StatusLabel;

    QSize minimumSizeHint() const override { return {0, StatusLabel::minimumSizeHint().height()}; }
};

QWidget* MakeLabel(const LStatusItem& item, QWidget* parent) {
    return MakeChild<StatusLabel>(parent, item.widestText);
}

QWidget* MakeChooser(const LStatusItem& item, QWidget* parent) {
    auto* combo = MakeChild<StatusChooser>(parent);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    const QFontMetrics metrics = combo->fontMetrics();
    const int width = metrics.horizontalAdvance(QString::fromUtf8(item.widestText));
    combo->setMinimumContentsLength(1 + width / metrics.horizontalAdvance('X'));
    combo->setMinimumWidth(LeastChooserWidth);
    return combo;
}

QWidget* MakeWidget(const LStatusItem& item, QWidget* parent) {
    switch (item.kind) {
    case LStatusKind::Text:
        return MakeLabel(item, parent);
    case LStatusKind::Remark:
        return MakeChild<StatusRemark>(parent, item.widestText);
    case LStatusKind::Level:
        return MakeChild<LQtLevelMeter>(parent);
    case LStatusKind::Chooser:
        return MakeChooser(item, parent);
    case LStatusKind::Toggle:
        return MakeChild<StatusToggle>(parent, item.picture);
    case LStatusKind::Slider:
        return MakeChild<StatusSlider>(parent, Qt::Horizontal);
    }
    return nullptr;
}

} // namespace

QWidget* MakeStatusWidget(const LStatusItem& item, QWidget* parent) {
    QWidget* widget = MakeWidget(item, parent);
    const QString name = QString::fromUtf8(item.toolTip);
    widget->setToolTip(name);
    widget->setAccessibleName(name);
    if (item.kind == LStatusKind::Chooser || item.kind == LStatusKind::Toggle ||
        item.kind == LStatusKind::Slider)
        widget->setFocusPolicy(Qt::TabFocus);
    return widget;
}
