#include "gui/qt/qt_calm_text.h"

#include "gui/qt/qt_spoken_text.h"

#include <QAccessible>
#include <QWidget>

#include <utility>

static constexpr int CalmMs = 1000;

void LQtCalmText::Tell() {
    const QString now = text.GetSpoken();
    if (calm.isActive() || now == told)
        return;
    calm.start(CalmMs, this);
    QAccessibleTextUpdateEvent change(&widget, 0, std::exchange(told, now), now);
    QAccessible::updateAccessibility(&change);
}

void LQtCalmText::timerEvent(QTimerEvent* /*event*/) {
    calm.stop();
    Tell();
}
