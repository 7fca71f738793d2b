#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QString>

class LQtSpokenText;
class QWidget;

/// Tells screen readers of a text that changes: once a second at most, and only while it does.
class LQtCalmText : public QObject {
public:
    /// Both are the widget, which outlives this.
    LQtCalmText(QWidget& shownBy, const LQtSpokenText& shown) : widget(shownBy), text(shown) {}

    /// It may be another one now.
    void Tell();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    QWidget& widget;
    const LQtSpokenText& text;
    QBasicTimer calm; ///< since it was told
    QString told;
};
