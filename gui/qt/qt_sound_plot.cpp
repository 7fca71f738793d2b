#include "gui/qt/qt_sound_plot.h"

#include "gui/qt/qt_shades.h"
#include "gui/qt/qt_text.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double Gap = 4;          // between marks and plot
constexpr double DotPixels = 6;    // from sample to sample, for each to be seen
constexpr double DenseFrames = 40; // in a pixel, where a wave becomes an area
constexpr double CurveWidth = 1.4, WideCurve = 2.8;

/// From point to point: a whole polyline takes a hundred times as long where it goes up and down a lot.
void DrawCurve(QPainter& painter, const QList<QPointF>& points, const QColor& colour, double width) {
    QList<QLineF> lines;
    for (qsizetype i = 1; i < points.size(); ++i)
        lines.append({points[i - 1], points[i]});
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, width));
    painter.drawLines(lines);
}

/// Of one pixel of the screen each.
void DrawColumns(QPainter& painter, const QList<QLineF>& columns, const QColor& colour) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(colour, 0));
    painter.drawLines(columns);
}

QFontMetricsF Measure(const QFont& font) {
    return QFontMetricsF(font);
}

} // namespace

QColor GetChannelColour(const QPalette& palette, std::size_t channel) {
    constexpr QRgb First[] = {0x0072b2, 0x56b4e9}, Second[] = {0xd55e00, 0xe69f00}; // light, dark
    const std::size_t shade = IsDark(palette) ? 1 : 0;
    return channel % 2 == 0 ? First[shade] : Second[shade];
}

LQtSoundPlot::LQtSoundPlot(const LSoundView& shown, LPlot plotKind, const QRectF& whole, const QFont& marks,
                           const QPalette& colours)
    : view(shown),
      plot(plotKind),
      font(marks),
      palette(colours) {
    const QFontMetricsF metrics = Measure(font);
    const double top = view.GetSound().GetWaveTop();
    vertical = plot == LPlot::Wave ? LAxis{-top, top} : LAxis{LShownSound::Floor, 0};
    area = whole.adjusted(0, metrics.ascent() / 2, 0, -metrics.height() - Gap);
    rows = MarkNumbers(vertical, static_cast<int>(area.height() / (1.5 * metrics.height())));
    double widest = 0;
    for (const LTick& tick : rows.ticks)
        widest = std::max(widest, metrics.horizontalAdvance(ToQt(tick.text)));
    area.setLeft(std::ceil(whole.left() + widest + Gap));
    const auto most = static_cast<int>(area.width() / metrics.horizontalAdvance("00000"));
    const LAxis& axis = view.GetAxis(plot);
    columns = plot == LPlot::Wave ? MarkSeconds(axis, most) : MarkHz(axis, most);
}

void LQtSoundPlot::Paint(QPainter& painter) const {
    painter.fillRect(area, palette.color(QPalette::Base));
    PaintAxes(painter);
    painter.save();
    painter.setClipRect(area);
    const LShownSound& sound = view.GetSound();
    const LAxis& axis = view.GetAxis(plot);
    const double frames = (axis.to - axis.from) * sound.rate;
    for (std::size_t c = 0; c < sound.channels.size(); ++c) {
        if (plot == LPlot::Spectrum)
            PaintSpectrum(painter, c);
        else if (sound.HasSamples(axis.to) && frames <= 2 * area.width())
            PaintSamples(painter, c);
        else
            PaintEnvelope(painter, c);
    }
    painter.restore();
}

void LQtSoundPlot::PaintAxes(QPainter& painter) const {
    const QFontMetricsF metrics = Measure(font);
    const auto line = [&](double x, double y, double width, double height, float alpha) {
        painter.fillRect(QRectF(x, y, width, height), Faint(palette, alpha));
    };
    painter.setFont(font);
    painter.setPen(Faint(palette, 0.85F));
    for (const LTick& tick : rows.ticks) {
        const double y = area.bottom() - tick.place * area.height();
        const bool isZero = plot == LPlot::Wave && std::abs(tick.place - vertical.GetPlace(0)) < 1e-6;
        line(area.left(), std::round(y), area.width(), 1, isZero ? 0.35F : 0.12F);
        painter.drawText(QRectF(0, y - metrics.height() / 2, area.left() - Gap, metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter, ToQt(tick.text));
    }
    const QString unit = ToQt(columns.unit);
    const double unitLeft = area.right() - metrics.horizontalAdvance(unit);
    double free = area.left() - 2 * metrics.averageCharWidth();
    for (const LTick& tick : columns.ticks) {
        const double x = GetX(tick.place);
        line(std::min(std::round(x), area.right() - 1), area.top(), 1, area.height(), 0.12F);
        const double half = metrics.horizontalAdvance(ToQt(tick.text)) / 2;
        if (x - half < free || x + half + metrics.averageCharWidth() > unitLeft)
            continue;
        painter.drawText(QPointF(x - half, area.bottom() + Gap + metrics.ascent()), ToQt(tick.text));
        free = x + half + metrics.averageCharWidth();
    }
    painter.drawText(QPointF(unitLeft, area.bottom() + Gap + metrics.ascent()), unit);
}

void LQtSoundPlot::ForEachColumn(const QPainter& painter,
                                 const std::function<void(double x, double from, double to)>& call) const {
    const double pixel = 1 / painter.device()->devicePixelRatioF();
    const LAxis& axis = view.GetAxis(plot);
    const int count = static_cast<int>(area.width() / pixel);
    for (int i = 0; i < count; ++i)
        call(area.left() + (i + 0.5) * pixel, axis.GetValue(i * pixel / area.width()),
             axis.GetValue((i + 1) * pixel / area.width()));
}

/// As a line from sample to sample; the first channel wider, to be seen where the other one is the same.
void LQtSoundPlot::PaintSamples(QPainter& painter, std::size_t channel) const {
    const LShownSound& sound = view.GetSound();
    const LAxis& axis = view.GetAxis(LPlot::Wave);
    const std::vector<float>& samples = sound.channels[channel].samples;
    const auto first = static_cast<std::size_t>(std::max(0.0, axis.from * sound.rate));
    const auto end = std::min(samples.size(), static_cast<std::size_t>(std::ceil(axis.to * sound.rate)) + 1);
    QList<QPointF> points;
    for (std::size_t i = first; i < end; ++i)
        points.append({GetX(axis.GetPlace(static_cast<double>(i) / sound.rate)), GetY(double{samples[i]})});
    const bool isWide = channel == 0 && sound.channels.size() > 1;
    const QColor colour = GetChannelColour(palette, channel);
    DrawCurve(painter, points, colour, isWide ? WideCurve : CurveWidth);
    if (static_cast<double>(points.size()) > area.width() / DotPixels)
        return;
    painter.setPen(QPen(colour, 2 * WideCurve, Qt::SolidLine, Qt::RoundCap));
    painter.drawPoints(points.data(), static_cast<int>(points.size()));
}

/// What each column of the screen's pixels reaches.
void LQtSoundPlot::PaintEnvelope(QPainter& painter, std::size_t channel) const {
    const LShownSound& sound = view.GetSound();
    const LAxis& axis = view.GetAxis(LPlot::Wave);
    QList<QLineF> lines;
    QList<QPointF> points;
    ForEachColumn(painter, [&](double x, double from, double to) {
        const LShownSound::Range range = sound.GetWave(channel, from, to);
        lines.append({x, GetY(double{range.most}), x, GetY(double{range.least})});
        points << lines.back().p1() << lines.back().p2();
    });
    if ((axis.to - axis.from) * sound.rate < DenseFrames * area.width())
        return DrawCurve(painter, points, GetChannelColour(palette, channel), 1);
    DrawColumns(painter, lines, WithAlpha(GetChannelColour(palette, channel), channel == 0 ? 1.0F : 0.65F));
}

void LQtSoundPlot::PaintSpectrum(QPainter& painter, std::size_t channel) const {
    const LShownSound& sound = view.GetSound();
    const double bottom = area.bottom() + 2; // out of sight
    QList<QPointF> points;
    QList<QLineF> below;
    ForEachColumn(painter, [&](double x, double from, double to) {
        points.append({x, std::min(GetY(sound.GetHighest(channel, from, to)), bottom)});
        below.append({points.back(), QPointF(x, bottom)});
    });
    const QColor colour = GetChannelColour(palette, channel);
    DrawColumns(painter, below, WithAlpha(colour, 0.16F));
    DrawCurve(painter, points, colour, CurveWidth);
}

/// A line through the place, and the words beside it where there is room.
void LQtSoundPlot::PaintReading(QPainter& painter, const LSoundView::Reading& reading) const {
    const QColor text = palette.color(QPalette::WindowText);
    const double x = GetX(reading.place);
    painter.fillRect(QRectF(std::round(x), area.top(), 1, area.height()), Faint(palette, 0.7F));
    painter.setFont(font);
    const QFontMetricsF metrics = Measure(font);
    const QString words = ToQt(reading.text);
    const QSizeF size(metrics.horizontalAdvance(words) + 2 * Gap, metrics.height() + Gap);
    const double wanted = x + Gap + size.width() <= area.right() ? x + Gap : x - Gap - size.width();
    const QRectF box(
        QPointF(std::max(area.left(), std::min(wanted, area.right() - size.width())), area.top() + Gap),
        size);
    painter.fillRect(box, WithAlpha(palette.color(QPalette::Window), 0.9F));
    painter.setPen(text);
    painter.drawText(box, Qt::AlignCenter, words);
}
