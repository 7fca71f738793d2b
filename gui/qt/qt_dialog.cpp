#include "gui/qt/qt_dialog.h"

#include "gui/qt/qt_active_window.h"
#include "gui/qt/qt_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {

constexpr double UsualTextHeight = 17;
constexpr double SmallestPart = 0.7; // of the height of a dialog that grows
constexpr int FrameHeight = 40;      // about

/// Layouts are made for text of the usual size; larger text makes them larger.
double UnitFor(const QWidget& widget) {
    return std::max(1.0, widget.fontMetrics().height() / UsualTextHeight);
}

} // namespace

LQtDialog::LQtDialog(const LDialogLayout& dialogLayout, LWindowEvents& windowEvents)
    : QDialog(FindActiveWindow()),
      events(windowEvents),
      controls(this, UnitFor(*this), windowEvents) {
    const QSize size(static_cast<int>(std::lround(dialogLayout.width * controls.GetUnit())),
                     static_cast<int>(std::lround(dialogLayout.height * controls.GetUnit())));
    setMinimumSize(size);
    if (CanGrow(dialogLayout)) // what grows can give way on a small screen
        setMinimumHeight(static_cast<int>(size.height() * SmallestPart));
    else
        setMaximumSize(size);
    resize(size.boundedTo(screen()->availableSize() - QSize(0, FrameHeight)).expandedTo(minimumSize()));
    setWindowModality(Qt::ApplicationModal);
    qApp->installEventFilter(this);
}

bool LQtDialog::RunModal() {
    return exec() == Accepted;
}

void LQtDialog::End(bool ok) {
    done(ok ? Accepted : Rejected);
}

void LQtDialog::ShowModal() {
    show();
}

bool LQtDialog::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (event->type() != QEvent::KeyPress || !widget || widget->window() != this)
        return QDialog::eventFilter(watched, event);
    return OfferKey(events, *widget, static_cast<QKeyEvent&>(*event));
}

void LQtDialog::keyPressEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) // the key that has opened the dialog may still be held
        return;
    if (event->key() == Qt::Key_F1 && controls.Find(LCommandHelp))
        events.ControlUsed(LCommandHelp);
    else
        QDialog::keyPressEvent(event);
}

void LQtDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    events.Resized(static_cast<int>(std::lround(width() / controls.GetUnit())),
                   static_cast<int>(std::lround(height() / controls.GetUnit())));
}
