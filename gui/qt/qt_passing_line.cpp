#include "gui/qt/qt_passing_line.h"

#include <QAccessible>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int ShownMs = 8'000;
constexpr int Margin = 6;

} // namespace

LQtPassingLine::LQtPassingLine(QWidget* statusBar) : QLabel(statusBar) {
    setTextFormat(Qt::PlainText);
    setAutoFillBackground(true);
    setMargin(Margin);
    hide();
}

void LQtPassingLine::Show(const QString& line) {
    const int room = parentWidget()->width() - 2 * Margin;
    setText(fontMetrics().elidedText(line, Qt::ElideMiddle, room));
    setToolTip(line);
    setAccessibleName(line);
    const int width = std::min(sizeHint().width(), parentWidget()->width());
    const QRect place(0, 0, width, parentWidget()->height());
    setGeometry(QStyle::visualRect(layoutDirection(), parentWidget()->rect(), place));
    show();
    raise();
    timer.start(ShownMs, this);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void LQtPassingLine::timerEvent(QTimerEvent* /*event*/) {
    timer.stop();
    hide();
}

void LQtPassingLine::mousePressEvent(QMouseEvent* /*event*/) {
    hide();
}
