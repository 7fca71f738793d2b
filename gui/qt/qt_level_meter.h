#pragma once

#include "gui/level_fall.h"

#include <QBasicTimer>
#include <QWidget>

#include <vector>

/// A level meter: one bar for each channel, which rises at once and falls gently.
class LQtLevelMeter : public QWidget {
public:
    explicit LQtLevelMeter(QWidget* parent);

    void SetLevels(const std::vector<int>& decibels);

    QSize sizeHint() const override { return {110, 14}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QRectF PlaceBar(std::size_t channel) const;

    std::vector<LLevelFall> channels = std::vector<LLevelFall>(2);
    QBasicTimer timer; ///< runs only while a bar falls
};
