#pragma once

#include <QBasicTimer>
#include <QLabel>

/// A line of text over the start of the status bar, whatever stands there. It goes after some seconds, or
/// with a click.
class LQtPassingLine : public QLabel {
public:
    explicit LQtPassingLine(QWidget* statusBar);

    void Show(const QString& line);

protected:
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QBasicTimer timer;
};
