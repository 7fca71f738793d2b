#include "gui/qt/qt_passing_line.h"

#include <QAccessible>
#include <QEvent>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int ShownMs = 8'000;
constexpr int Margin = 6;
constexpr qsizetype FieldsLeft = 3; // the volume's: its sign, slider and figure

} // namespace

LQtPassingLine::LQtPassingLine(const QWidget* barFields, QWidget* statusBar)
    : QLabel(statusBar),
      fields(barFields) {
    setTextFormat(Qt::PlainText);
    setAutoFillBackground(true);
    setMargin(Margin);
    statusBar->installEventFilter(this);
    hide();
}

void LQtPassingLine::Show(const QString& shown) {
    line = shown;
    setToolTip(line);
    setAccessibleName(line);
    Place();
    show();
    raise();
    timer.start(ShownMs, this);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

/// Where the field ends into which a line of this width reaches, so that none is covered in part.
int LQtPassingLine::FindEnd(int wanted) const {
    const auto place = [this](const QWidget* widget) { // as from the left, also where the bar is mirrored
        const QRect there(widget->mapTo(parentWidget(), QPoint(0, 0)), widget->size());
        return QStyle::visualRect(layoutDirection(), parentWidget()->rect(), there);
    };
    const QList<QWidget*> all = fields->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    int end = std::min(wanted, place(fields).left());
    for (const QWidget* field : all.first(std::max<qsizetype>(all.size() - FieldsLeft, 0)))
        if (end < wanted)
            end = place(field).right() + Margin;
    return end;
}

void LQtPassingLine::Place() {
    const int end = FindEnd(fontMetrics().horizontalAdvance(line) + 2 * Margin);
    setText(fontMetrics().elidedText(line, Qt::ElideMiddle, end - 2 * Margin));
    setGeometry(QStyle::visualRect(layoutDirection(), parentWidget()->rect(),
                                   QRect(0, 0, end, parentWidget()->height())));
}

bool LQtPassingLine::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible())
        Place();
    return QLabel::eventFilter(watched, event);
}

void LQtPassingLine::timerEvent(QTimerEvent* /*event*/) {
    timer.stop();
    hide();
}

void LQtPassingLine::mousePressEvent(QMouseEvent* /*event*/) {
    hide();
}
