#pragma once

#include <QLineEdit>

#include <functional>

/// A line of text in which the arrow keys up and down, and the wheel while it has the keyboard, ask for
/// steps.
class LQtEntry : public QLineEdit {
public:
    LQtEntry(const QString& text, QWidget* parent) : QLineEdit(text, parent) {}

    std::function<void(int steps)> onStep;

    /// Tints a text that can't be taken.
    void MarkWrong(bool wrong);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int turned = 0; ///< of the wheel, less than a step
};
