#include "gui/qt/qt_entry.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace {

constexpr int Notch = 120; // of a wheel, in eighths of a degree
constexpr QColor Warning(0xd0, 0x30, 0x30);
constexpr float Tint = 0.25F;

QColor Blend(const QColor& under, const QColor& over, float part) {
    const auto mix = [part](float a, float b) { return a + (b - a) * part; };
    return QColor::fromRgbF(mix(under.redF(), over.redF()), mix(under.greenF(), over.greenF()),
                            mix(under.blueF(), over.blueF()));
}

} // namespace

void LQtEntry::MarkWrong(bool wrong) {
    QPalette colours; // the theme's where nothing is set
    if (wrong)
        colours.setColor(QPalette::Base, Blend(colours.color(QPalette::Base), Warning, Tint));
    setPalette(colours);
}

void LQtEntry::keyPressEvent(QKeyEvent* event) {
    const int steps = event->key() == Qt::Key_Up ? 1 : event->key() == Qt::Key_Down ? -1 : 0;
    if (steps != 0 && onStep)
        onStep(steps);
    else
        QLineEdit::keyPressEvent(event);
}

void LQtEntry::wheelEvent(QWheelEvent* event) {
    if (!hasFocus() || !onStep)
        return;
    turned += event->angleDelta().y();
    if (const int steps = turned / Notch; steps != 0)
        onStep(steps);
    turned %= Notch;
    event->accept();
}
