#pragma once

#include <QBasicTimer>
#include <QLabel>

/// A line of text over the first fields of a status bar, as many of them as it needs, but for the last ones.
/// It goes after some seconds, or with a click.
class LQtPassingLine : public QLabel {
public:
    /// Over fields of this widget, which stands in the status bar.
    LQtPassingLine(const QWidget* barFields, QWidget* statusBar);

    void Show(const QString& shown);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    int FindEnd(int wanted) const;
    void Place();

    const QWidget* fields;
    QString line;
    QBasicTimer timer;
};
