#include "gui/qt/qt_level_meter.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int FrameMs = 33;
constexpr double LoudDecibels = -6; // from here on the bar warns

} // namespace

LQtLevelMeter::LQtLevelMeter(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void LQtLevelMeter::SetLevels(const std::vector<int>& decibels) {
    if (!decibels.empty())
        channels.resize(decibels.size());
    for (std::size_t i = 0; i < decibels.size(); ++i)
        channels[i].Take(decibels[i]);
    if (!timer.isActive())
        timer.start(FrameMs, this);
    update();
}

void LQtLevelMeter::timerEvent(QTimerEvent* /*event*/) {
    for (LLevelFall& channel : channels)
        channel.Advance(FrameMs);
    if (std::none_of(channels.begin(), channels.end(), [](const auto& each) { return each.IsFalling(); }))
        timer.stop();
    update();
}

QRectF LQtLevelMeter::PlaceBar(std::size_t channel) const {
    const double pitch = static_cast<double>(height()) / static_cast<double>(channels.size());
    return {0, pitch * static_cast<double>(channel) + 1, static_cast<double>(width()), pitch - 2};
}

void LQtLevelMeter::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QColor trough = palette().color(QPalette::WindowText);
    trough.setAlphaF(0.18F);
    const double loudFrom = 1 - LoudDecibels / LLevelFall::Silence;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const QRectF bar = PlaceBar(i);
        const double lit = bar.width() * channels[i].GetFraction();
        const double calm = std::min(lit, bar.width() * loudFrom);
        painter.fillRect(bar, trough);
        painter.fillRect(QRectF(bar.topLeft(), QSizeF(calm, bar.height())), QColor(0x2e, 0xa0, 0x43));
        painter.fillRect(QRectF(bar.left() + calm, bar.top(), lit - calm, bar.height()),
                         QColor(0xe0, 0x8a, 0x1e));
    }
}
