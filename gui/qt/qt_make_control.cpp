#include "gui/qt/qt_make_control.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_entry.h"
#include "gui/qt/qt_link.h"
#include "gui/qt/qt_list_view.h"
#include "gui/qt/qt_number_edit.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

namespace {

QFrame* MakeLine(QWidget* parent) {
    auto* line = MakeChild<QFrame>(parent);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

QLabel* MakeText(QWidget* parent, const QString& text) {
    auto* label = MakeChild<QLabel>(parent, text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

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
    case LControlKind::Text:
        return MakeText(parent, text);
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
    }
    return nullptr;
}
