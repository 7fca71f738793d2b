#include "gui/qt/qt_sound_plot.h"

#include "gui/qt/qt_text.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double Gap = 4;       // between marks and plot
constexpr double DotPixels = 6; // from sample to sample, for each to be seen
constexpr double CurveWidth = 1.4, WideCurve = 2.8;

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

QColor WithAlpha(QColor colour, float alpha) {
    colour.setAlphaF(alpha);
    return colour;
}

QFontMetricsF Measure(const QFont& font) {
    return QFontMetricsF(font);
}

} // namespace

QColor GetChannelColour(const QPalette& palette, std::size_t channel) {
    constexpr QRgb Dark[] = {0x56b4e9, 0xe69f00}, Light[] = {0x0072b2, 0xd55e00};
    return (IsDark(palette) ? Dark : Light)[channel % 2];
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
    area.setLeft(whole.left() + widest + Gap);
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
    const QColor text = palette.color(QPalette::WindowText);
    const auto line = [&](double x, double y, double width, double height, float alpha) {
        painter.fillRect(QRectF(x, y, width, height), WithAlpha(text, alpha));
    };
    painter.setFont(font);
    painter.setPen(WithAlpha(text, 0.85F));
    for (const LTick& tick : rows.ticks) {
        const double y = area.bottom() - tick.place * area.height();
        line(area.left(), std::round(y), area.width(), 1, tick.text == "0" ? 0.3F : 0.12F);
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

/// As a line from sample to sample; the first channel wider, to be seen where the other one is the same.
void LQtSoundPlot::PaintSamples(QPainter& painter, std::size_t channel) const {
    const LShownSound& sound = view.GetSound();
    const LAxis& axis = view.GetAxis(LPlot::Wave);
    const std::vector<float>& samples = sound.channels[channel].samples;
    const double first = std::max(0.0, std::floor(axis.from * sound.rate));
    const double last = std::min(std::ceil(axis.to * sound.rate), static_cast<double>(samples.size()) - 1);
    QPolygonF points;
    for (double i = first; i <= last; ++i)
        points.append(
            {GetX(axis.GetPlace(i / sound.rate)), GetY(double{samples[static_cast<std::size_t>(i)]})});
    const bool isWide = channel == 0 && sound.channels.size() > 1;
    const QColor colour = GetChannelColour(palette, channel);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, isWide ? WideCurve : CurveWidth));
    painter.drawPolyline(points);
    if (last - first > area.width() / DotPixels)
        return;
    painter.setPen(QPen(colour, 2 * WideCurve, Qt::SolidLine, Qt::RoundCap));
    painter.drawPoints(points);
}

/// What each column of the screen's pixels reaches.
void LQtSoundPlot::PaintEnvelope(QPainter& painter, std::size_t channel) const {
    const LShownSound& sound = view.GetSound();
    const LAxis& axis = view.GetAxis(LPlot::Wave);
    const double pixel = 1 / painter.device()->devicePixelRatioF();
    const QColor colour = WithAlpha(GetChannelColour(palette, channel), channel == 0 ? 1.0F : 0.65F);
    for (double x = 0; x < area.width(); x += pixel) {
        const LShownSound::Range range = sound.GetWave(channel, axis.GetValue(x / area.width()),
                                                       axis.GetValue((x + pixel) / area.width()));
        const double top = GetY(double{range.most});
        const double height = std::max(pixel, GetY(double{range.least}) - top);
        painter.fillRect(QRectF(area.left() + x, top, pixel, height), colour);
    }
}

void LQtSoundPlot::PaintSpectrum(QPainter& painter, std::size_t channel) const {
    const LShownSound& sound = view.GetSound();
    const LAxis& axis = view.GetAxis(LPlot::Spectrum);
    const double pixel = 1 / painter.device()->devicePixelRatioF();
    QPolygonF points;
    for (double x = 0; x <= area.width(); x += pixel) {
        const double level = sound.GetHighest(channel, axis.GetValue((x - pixel / 2) / area.width()),
                                              axis.GetValue((x + pixel / 2) / area.width()));
        points.append({area.left() + x, std::min(GetY(level), area.bottom() + 2)});
    }
    const QColor colour = GetChannelColour(palette, channel);
    QPolygonF filled = points;
    filled.append({area.right(), area.bottom() + 2});
    filled.append({area.left(), area.bottom() + 2});
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(WithAlpha(colour, 0.16F));
    painter.drawPolygon(filled);
    painter.setPen(QPen(colour, CurveWidth));
    painter.drawPolyline(points);
}

/// A line through the place, and the words beside it where there is room.
void LQtSoundPlot::PaintReading(QPainter& painter, const LSoundView::Reading& reading) const {
    const QColor text = palette.color(QPalette::WindowText);
    const double x = GetX(reading.place);
    painter.fillRect(QRectF(std::round(x), area.top(), 1, area.height()), WithAlpha(text, 0.7F));
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
