#include "gui/qt/qt_level_meter.h"

#include "gui/format_fixed.h"
#include "gui/qt/qt_shades.h"
#include "gui/qt/qt_text.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int FrameMs = 40;
constexpr double MarkTextSize = 0.72; // of the other fields'
constexpr double PeakWidth = 2, FullWidth = 5;
const QString LampText = QStringLiteral("LIM");

/// Legible on what the theme has behind them.
struct Colours {
    QColor calm, loud, full;

    explicit Colours(const QPalette& palette) {
        const bool dark = IsDark(palette);
        calm = dark ? QColor(0x3f, 0xb9, 0x50) : QColor(0x1f, 0x8a, 0x3b);
        loud = dark ? QColor(0xe3, 0xa0, 0x08) : QColor(0xb8, 0x6e, 0x00);
        full = dark ? QColor(0xff, 0x5c, 0x57) : QColor(0xd1, 0x24, 0x2f);
    }
    QColor Of(double level) const {
        return LLevelMeter::IsFull(level) ? full : level >= LLevelMeter::Loud ? loud : calm;
    }
};

} // namespace

LQtLevelMeter::LQtLevelMeter(QWidget* parent) : QWidget(parent) {
    Measure();
}

void LQtLevelMeter::SetLevels(const LMeterLevels& levels) {
    meter.Take(levels);
    if (!frames.isActive())
        frames.start(FrameMs, this); // which draws
    spoken.Tell();
}

void LQtLevelMeter::timerEvent(QTimerEvent* /*event*/) {
    meter.Advance(FrameMs);
    if (!meter.IsMoving())
        frames.stop();
    const std::vector<int> picture = GetPicture();
    if (picture == drawn)
        return;
    const bool lampChanges = drawn.empty() || drawn.back() != picture.back();
    drawn = picture;
    const QRectF bars = Place(0, 0, lampChanges ? width() : GetScaleWidth(), GetBarsHeight());
    update(bars.toAlignedRect()); // without the numbers, which take longer than all the rest
}

std::vector<int> LQtLevelMeter::GetPicture() const {
    std::vector<int> picture;
    for (const LLevelMeter::Channel& channel : meter.GetChannels())
        for (const double level : {channel.bar.Get(), channel.peak.Get()}) {
            picture.push_back(qRound(GetScaleWidth() * LLevelMeter::GetPlace(level)));
            picture.push_back(LLevelMeter::IsFull(level) ? 1 : 0);
        }
    picture.push_back(meter.IsLimiting() ? 1 + qRound(meter.GetReduction()) : 0);
    return picture;
}

QString LQtLevelMeter::GetSpoken() const {
    return ToQt(meter.Describe(0));
}

bool LQtLevelMeter::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const std::string levels = meter.Describe(1);
    const QString text = levels.empty() ? toolTip() : toolTip() + ": " + ToQt(levels);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text, this);
    return true;
}

void LQtLevelMeter::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        Measure();
    QWidget::changeEvent(event);
}

void LQtLevelMeter::Measure() {
    markFont = font();
    markFont.setPointSizeF(markFont.pointSizeF() * MarkTextSize);
    const QFontMetricsF metrics(markFont);
    lampWidth = metrics.horizontalAdvance(LampText) + 8;
    numbersHeight = metrics.ascent() + 1;
}

QRectF LQtLevelMeter::Place(double left, double top, double right, double bottom) const {
    const double x = isRightToLeft() ? width() - right : left;
    return {x, top, right - left, bottom - top};
}

QRectF LQtLevelMeter::PlaceLamp() const {
    return Place(GetScaleWidth() + 6, 0, width(), GetBarsHeight() - 1);
}

void LQtLevelMeter::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setLayoutDirection(Qt::LeftToRight); // of numbers
    const auto& channels = meter.GetChannels();
    const double pitch = GetBarsHeight() / static_cast<double>(channels.size());
    double top = 0;
    for (const LLevelMeter::Channel& channel : channels) {
        PaintBar(painter, channel, top, top + pitch - 1);
        top += pitch;
    }
    PaintMarks(painter);
    painter.setFont(markFont);
    const QRectF part = event->rect();
    if (part.bottom() > GetBarsHeight() + 1)
        PaintNumbers(painter);
    if (part.intersects(PlaceLamp()))
        PaintLamp(painter);
}

void LQtLevelMeter::PaintBar(QPainter& painter, const LLevelMeter::Channel& channel, double top,
                             double bottom) const {
    const Colours colours(palette());
    const double end = GetScaleWidth();
    const auto fill = [&](double left, double right, const QColor& colour) {
        if (right > left)
            painter.fillRect(Place(left, top, right, bottom), colour);
    };
    const double level = channel.bar.Get(), peak = channel.peak.Get();
    const double lit = end * LLevelMeter::GetPlace(level);
    const double loud = end * LLevelMeter::GetPlace(LLevelMeter::Loud);
    fill(0, end, Faint(palette(), 0.18F));
    fill(0, std::min(lit, loud), colours.calm);
    fill(loud, lit, colours.loud);
    if (LLevelMeter::IsFull(level))
        fill(end - FullWidth, end, colours.full);
    const double mark = end * LLevelMeter::GetPlace(peak);
    if (peak > LLevelMeter::Least)
        fill(std::max(0.0, mark - PeakWidth), mark, colours.Of(peak));
}

void LQtLevelMeter::PaintMarks(QPainter& painter) const {
    for (const double mark : LLevelMeter::GetMarks()) {
        const double left = (GetScaleWidth() - 1) * LLevelMeter::GetPlace(mark);
        painter.fillRect(Place(left, 0, left + 1, GetBarsHeight()), Faint(palette(), 0.45F));
    }
}

/// From full scale down, and no number into another: where there is little room the upper ones matter.
void LQtLevelMeter::PaintNumbers(QPainter& painter) const {
    const double end = GetScaleWidth(), bars = GetBarsHeight();
    const auto marks = LLevelMeter::GetMarks();
    double free = width();
    for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark) {
        const double at = end * LLevelMeter::GetPlace(*mark);
        const QString text = ToQt(FormatFixed(*mark, 0));
        const double wide = painter.fontMetrics().horizontalAdvance(text);
        const double left = std::max(0.0, at - wide / 2);
        if (left + wide + 3 > free)
            continue;
        free = left;
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(Place(left - 1, bars, left + wide + 1, height()), Qt::AlignCenter, text);
    }
}

void LQtLevelMeter::PaintLamp(QPainter& painter) const {
    const QRectF lamp = PlaceLamp();
    const bool lit = meter.IsLimiting();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(lit ? Colours(palette()).loud : Faint(palette(), 0.12F));
    painter.drawRoundedRect(lamp, 2, 2);
    painter.setPen(lit ? palette().color(QPalette::Window) : Faint(palette(), 0.6F));
    painter.drawText(lamp, Qt::AlignCenter, lit ? ToQt(FormatFixed(-meter.GetReduction(), 0)) : LampText);
}
