#include "gui/qt/qt_sound_view.h"

#include "gui/qt/qt_shades.h"
#include "gui/qt/qt_text.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double MarkTextSize = 0.82; // of the figures'
constexpr int Inset = 12, Above = 10, PlotGap = 14, LineGap = 4;
constexpr double WaveShare = 0.42;     // of the width, beside the spectrum
constexpr double LeastPlotLines = 4.5; // of text, in height
constexpr double ReachPixels = 4;
constexpr double WheelZoom = 1.25, KeyZoom = 1.5;
constexpr int WheelStep = 120;
constexpr double KeyStep = 0.01; // of the axis

QColor GetWarningColour(const QPalette& palette) {
    return IsDark(palette) ? QColor(0xe3, 0xa0, 0x08) : QColor(0x9a, 0x52, 0x00);
}

} // namespace

LQtSoundView::LQtSoundView(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard where it is
    QEvent font(QEvent::FontChange);
    LQtSoundView::changeEvent(&font);
}

void LQtSoundView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        markFont = font();
        markFont.setPointSizeF(fontInfo().pointSizeF() * MarkTextSize);
    }
    QWidget::changeEvent(event);
}

void LQtSoundView::Change(const std::function<void(LSoundView& view)>& change) {
    change(view);
    spoken.Tell();
    update();
}

QString LQtSoundView::GetSpoken() const {
    return ToQt(view.Describe());
}

/// That of the figures and of the lines.
double LQtSoundView::GetTextHeight() const {
    return Above + QFontMetricsF(font()).height() + LineGap + QFontMetricsF(markFont).height();
}

int LQtSoundView::GetFiguresHeight() const {
    return static_cast<int>(Above + QFontMetricsF(font()).height() + LineGap);
}

int LQtSoundView::GetPlotsHeight() const {
    const double marks = QFontMetricsF(markFont).height();
    return static_cast<int>(GetTextHeight() + LeastPlotLines * marks + 2 * LineGap + marks);
}

LQtSoundPlot LQtSoundView::GetPlot(LPlot plot) const {
    QRectF room = QRectF(rect()).adjusted(Inset, GetTextHeight() + LineGap, -Inset, -LineGap);
    if (view.HasPlot(LPlot::Wave) && view.HasPlot(LPlot::Spectrum)) {
        const double wave = std::round((room.width() - PlotGap) * WaveShare);
        plot == LPlot::Wave ? room.setWidth(wave) : room.setLeft(room.left() + wave + PlotGap);
    }
    return {view, plot, room, markFont, palette()};
}

void LQtSoundView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setLayoutDirection(Qt::LeftToRight); // of numbers and axes
    PaintFigures(painter);
    if (height() < GetPlotsHeight())
        return;
    PaintLines(painter);
    if (view.GetSound().channels.size() > 1)
        PaintLegend(painter);
    const auto reading = view.GetReading();
    for (const LPlot plot : {LPlot::Wave, LPlot::Spectrum}) {
        if (!HasPlot(plot))
            continue;
        const LQtSoundPlot shown = GetPlot(plot);
        shown.Paint(painter);
        if (reading && reading->plot == plot)
            shown.PaintReading(painter, *reading);
        if (hasFocus() && view.GetPointedPlot() == plot) {
            painter.setPen(palette().color(QPalette::Highlight));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(shown.GetArea().adjusted(0, 0, -1, -1));
        }
    }
}

/// From the left, or where the desktop is mirrored from the right; the parts stay in their order.
void LQtSoundView::PaintFigures(QPainter& painter) const {
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    const auto fontOf = [&](const LMarkedText& part) { return part.isWarning ? bold : font(); };
    double wide = 0;
    for (const LMarkedText& part : view.GetSound().figures)
        wide += QFontMetricsF(fontOf(part)).horizontalAdvance(ToQt(part.text));
    double x = isRightToLeft() ? std::max<double>(Inset, width() - Inset - wide) : Inset;
    for (const LMarkedText& part : view.GetSound().figures) {
        const QFontMetricsF metrics(fontOf(part));
        painter.setFont(fontOf(part));
        painter.setPen(part.isWarning ? GetWarningColour(palette()) : palette().color(QPalette::WindowText));
        const QString text = metrics.elidedText(ToQt(part.text), Qt::ElideRight, width() - Inset - x);
        painter.drawText(QPointF(x, Above + metrics.ascent()), text);
        x += metrics.horizontalAdvance(text);
    }
}

void LQtSoundView::PaintLines(QPainter& painter) const {
    const QFontMetricsF marks(markFont);
    const QRectF room(Inset, GetTextHeight() - marks.height(), width() - 2 * Inset, marks.height());
    painter.setFont(markFont);
    painter.setPen(Faint(palette(), 0.7F));
    painter.drawText(room, isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft,
                     marks.elidedText(ToQt(view.GetSound().lines), Qt::ElideRight, room.width()));
}

/// At the end of the figures' line.
void LQtSoundView::PaintLegend(QPainter& painter) const {
    const QFontMetricsF metrics(markFont);
    const double swatch = metrics.height(), base = Above + QFontMetricsF(font()).ascent();
    const LShownSound& sound = view.GetSound();
    double wide = 0;
    for (std::size_t c = 0; c < sound.channels.size(); ++c)
        wide += 1.3 * swatch + metrics.horizontalAdvance(ToQt(sound.NameChannel(c)));
    double x = isRightToLeft() ? Inset : width() - Inset - wide;
    painter.setFont(markFont);
    painter.setPen(palette().color(QPalette::WindowText));
    for (std::size_t c = 0; c < sound.channels.size(); ++c) {
        const QString name = ToQt(sound.NameChannel(c));
        painter.fillRect(QRectF(x, base - metrics.ascent() / 2, swatch, 3), GetChannelColour(palette(), c));
        painter.drawText(QPointF(x + 1.3 * swatch, base), name);
        x += 1.3 * swatch + metrics.horizontalAdvance(name);
    }
}

std::optional<LQtSoundView::Spot> LQtSoundView::FindSpot(const QPointF& point) const {
    for (const LPlot plot : {LPlot::Wave, LPlot::Spectrum}) {
        if (!HasPlot(plot))
            continue;
        const QRectF area = GetPlot(plot).GetArea();
        if (area.contains(point))
            return Spot{plot, (point.x() - area.left()) / area.width(), area.width()};
    }
    return std::nullopt;
}

void LQtSoundView::wheelEvent(QWheelEvent* event) {
    const auto spot = FindSpot(event->position());
    if (!spot)
        return event->ignore();
    const QPoint turned = event->angleDelta();
    Change([&](LSoundView& shown) {
        if (turned.y() != 0)
            shown.Zoom(spot->plot, spot->place, std::pow(WheelZoom, turned.y() / double{WheelStep}));
        else
            shown.Move(spot->plot, -0.1 * turned.x() / double{WheelStep});
        shown.Point(spot->plot, spot->place, ReachPixels / spot->width);
    });
}

void LQtSoundView::mouseMoveEvent(QMouseEvent* event) {
    const auto spot = FindSpot(event->position());
    setCursor(spot ? Qt::CrossCursor : Qt::ArrowCursor);
    Change([&](LSoundView& shown) {
        const auto held = dragged ? FindSpot(*dragged) : std::nullopt;
        if (held)
            shown.Move(held->plot, (dragged->x() - event->position().x()) / held->width);
        if (held)
            dragged->setX(std::clamp(event->position().x(), 0.0, width() - 1.0));
        if (spot)
            shown.Point(spot->plot, spot->place, ReachPixels / spot->width);
        else
            shown.EndReading();
    });
}

void LQtSoundView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && FindSpot(event->position()))
        dragged = event->position();
}

void LQtSoundView::mouseReleaseEvent(QMouseEvent* /*event*/) {
    dragged.reset();
}

void LQtSoundView::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
    Change([](LSoundView& shown) { shown.ResetZoom(); });
}

void LQtSoundView::leaveEvent(QEvent* /*event*/) {
    if (!hasFocus())
        Change([](LSoundView& shown) { shown.EndReading(); });
}

void LQtSoundView::focusOutEvent(QFocusEvent* event) {
    Change([](LSoundView& shown) { shown.EndReading(); });
    QWidget::focusOutEvent(event);
}

void LQtSoundView::keyPressEvent(QKeyEvent* event) {
    Change([event](LSoundView& shown) {
        const LPlot plot = shown.GetPointedPlot();
        switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
            return shown.StepReading(event->key() == Qt::Key_Left ? -KeyStep : KeyStep);
        case Qt::Key_Up:
        case Qt::Key_Down:
            return shown.TurnReading();
        case Qt::Key_Home:
        case Qt::Key_End:
            return shown.StepReading(event->key() == Qt::Key_Home ? -1 : 1);
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return shown.Zoom(plot, shown.GetPointedPlace(), KeyZoom);
        case Qt::Key_Minus:
            return shown.Zoom(plot, shown.GetPointedPlace(), 1 / KeyZoom);
        default:
            event->ignore(); // which leaves it to the window
        }
    });
}

void LQtSoundView::contextMenuEvent(QContextMenuEvent* event) {
    menuPlace = event->globalPos();
    onMenu();
}
