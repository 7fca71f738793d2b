#include "gui/qt/qt_message_boxes.h"

#include "gui/qt/qt_active_window.h"
#include "gui/qt/qt_text.h"

#include <QMessageBox>

namespace {

QMessageBox::StandardButtons ButtonsOf(LMessageButtons buttons) {
    switch (buttons) {
    case LMessageButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case LMessageButtons::YesNo:
    case LMessageButtons::NoYes:
        return QMessageBox::Yes | QMessageBox::No;
    case LMessageButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case LMessageButtons::Ok:
    case LMessageButtons::OkFine:
        break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(LMessageButtons buttons) {
    if (buttons == LMessageButtons::OkFine)
        return QMessageBox::Information;
    return (ButtonsOf(buttons) & QMessageBox::Ok) != 0 ? QMessageBox::Warning : QMessageBox::Question;
}

/// A box that was closed some other way has had its least consequence chosen.
LMessageAnswer AnswerOf(int button, LMessageButtons offered) {
    switch (button) {
    case QMessageBox::Ok:
        return LMessageAnswer::Ok;
    case QMessageBox::Yes:
        return LMessageAnswer::Yes;
    case QMessageBox::No:
        return LMessageAnswer::No;
    case QMessageBox::Cancel:
        return LMessageAnswer::Cancel;
    default:
        return ButtonsOf(offered) == QMessageBox::Ok             ? LMessageAnswer::Ok
               : (ButtonsOf(offered) & QMessageBox::Cancel) != 0 ? LMessageAnswer::Cancel
                                                                 : LMessageAnswer::No;
    }
}

} // namespace

LMessageAnswer LQtMessageBoxes::Show(const std::string& title, const std::string& text,
                                     LMessageButtons buttons) {
    if (sessionEnd.HasBegun())
        return AnswerOf(QMessageBox::NoButton, buttons);
    QMessageBox box(FindActiveWindow());
    box.setWindowTitle(title.empty() ? " " : ToQt(title)); // for an empty one Qt puts the program's name
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(text).remove('\r'));
    box.setIcon(IconOf(buttons));
    box.setStandardButtons(ButtonsOf(buttons));
    if (buttons == LMessageButtons::YesNoCancel)
        box.setDefaultButton(QMessageBox::Yes);
    if (buttons == LMessageButtons::NoYes)
        box.setDefaultButton(QMessageBox::No);
    return AnswerOf(box.exec(), buttons);
}
