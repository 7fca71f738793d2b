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
        break;
    }
    return QMessageBox::Ok;
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
        return offered == LMessageButtons::Ok                    ? LMessageAnswer::Ok
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
    box.setWindowTitle(ToQt(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(text).remove('\r'));
    box.setIcon(buttons == LMessageButtons::Ok ? QMessageBox::Warning : QMessageBox::Question);
    box.setStandardButtons(ButtonsOf(buttons));
    if (buttons == LMessageButtons::YesNoCancel)
        box.setDefaultButton(QMessageBox::Yes);
    if (buttons == LMessageButtons::NoYes)
        box.setDefaultButton(QMessageBox::No);
    return AnswerOf(box.exec(), buttons);
}
