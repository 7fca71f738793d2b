#pragma once

#include <QAbstractSpinBox>

/// A line of text with arrows that step the number in it within a range. What is typed stays as it is, so
/// that whoever reads it can tell the user what is wrong with it.
class LQtNumberEdit : public QAbstractSpinBox {
public:
    explicit LQtNumberEdit(QWidget* parent);

    void SetRange(int lowest, int highest);
    void SetValue(int value);
    int GetValue() const { return text().trimmed().toInt(); }
    QLineEdit* GetLine() const { return lineEdit(); }

    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;

private:
    int least = 0;
    int most = 99;
};
