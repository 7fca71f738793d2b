#include "gui/qt/qt_make_control.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_entry.h"
#include "gui/qt/qt_link.h"
#include "gui/qt/qt_list_view.h"
#include "gui/qt/qt_number_edit.h"
#include "gui/qt/qt_shades.h"
#include "gui/qt/qt_sound_view.h"
#include "gui/qt/qt_spoken_chooser.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>

namespace {

QFrame* MakeLine(QWidget* parent) {
    auto* line = MakeChild<QFrame>(parent);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

class LQtHint : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QPalette shades = palette();
        shades.setColor(QPalette::WindowText, Faint(shades, 0.6F));
        style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), shades, isEnabled(), text(),
                              QPalette::WindowText);
    }
};

template <class Label = QLabel>
QLabel* MakeText(QWidget* parent, const QString& text) {
    auto* label = MakeChild<Label>(parent, text);
    label->setTextFormat(Qt::PlainText);
    // With its window, and not with the language of its text.
    label->setAlignment(QStyle::visualAlignment(parent->layoutDirection(), Qt::AlignLeading) |
                        Qt::AlignVCenter);
    return label;
}

QLabel* MakeHeading(QWidget* parent, const QString& text) {
    constexpr double Larger = 1.6;
    QLabel* label = MakeText(parent, text);
    QFont font = label->font();
    font.setPointSizeF(label->fontInfo().pointSizeF() * Larger);
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    return label;
}

/// Drawn by each screen's own pixels.
class LQtPicture : public QLabel {
public:
    LQtPicture(const QString& name, QWidget* parent) : QLabel(parent) { setAccessibleName(name); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        QApplication::windowIcon().paint(&painter, rect());
    }
};

QPushButton* MakeButton(QWidget* parent, int id, const QString& text) {
    auto* button = MakeChild<QPushButton>(parent, text);
    button->setDefault(id == LCommandOk);
    button->setAutoDefault(id == LCommandOk || id == LCommandCancel);
    return button;
}

} // namespace

QWidget* MakeControl(const LControlLayout& control, QWidget* parent) {
    const QString text = QString::fromUtf8(control.text);
    switch (control.kind) {
    case LControlKind::Group:
        return MakeChild<QGroupBox>(parent, text);
    case LControlKind::CheckBox:
        return MakeChild<QCheckBox>(parent, text);
    case LControlKind::Radio:
        return MakeChild<QRadioButton>(parent, text);
    case LControlKind::Edit:
        return MakeChild<LQtEntry>(parent, text);
    case LControlKind::NumberEdit:
        return MakeChild<LQtNumberEdit>(parent);
    case LControlKind::NumberText:
        break;
    case LControlKind::Chooser:
        return MakeChild<LQtSpokenChooser>(parent);
    case LControlKind::Text:
        return MakeText(parent, text);
    case LControlKind::Heading:
        return MakeHeading(parent, text);
    case LControlKind::Hint:
        return MakeText<LQtHint>(parent, text);
    case LControlKind::Picture:
        return MakeChild<LQtPicture>(parent, text);
    case LControlKind::Link:
        return MakeChild<LQtLink>(parent, text);
    case LControlKind::Button:
        return MakeButton(parent, control.id, text);
    case LControlKind::List:
        return MakeChild<LQtListWidget>(parent);
    case LControlKind::Line:
        return MakeLine(parent);
    case LControlKind::Progress:
        return MakeChild<QProgressBar>(parent);
    case LControlKind::Sound:
        return MakeChild<LQtSoundView>(parent);
    }
    return nullptr;
}
