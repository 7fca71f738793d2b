#include "gui/qt/qt_number_edit.h"

#include <QLineEdit>

#include <algorithm>

LQtNumberEdit::LQtNumberEdit(QWidget* parent) : QAbstractSpinBox(parent) {}

void LQtNumberEdit::SetRange(int lowest, int highest) {
    least = lowest;
    most = highest;
}

void LQtNumberEdit::SetValue(int value) {
    lineEdit()->setText(QString::number(value));
}

void LQtNumberEdit::stepBy(int steps) {
    SetValue(std::clamp(GetValue() + steps, least, most));
    selectAll();
}

QAbstractSpinBox::StepEnabled LQtNumberEdit::stepEnabled() const {
    StepEnabled enabled;
    enabled.setFlag(StepUpEnabled, GetValue() < most);
    enabled.setFlag(StepDownEnabled, GetValue() > least);
    return enabled;
}
