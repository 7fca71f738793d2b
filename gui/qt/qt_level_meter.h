#pragma once

#include "gui/level_meter.h"
#include "gui/qt/qt_spoken_value.h"

#include <QBasicTimer>
#include <QWidget>

/// A level meter: a bar with a peak mark for each channel over one scale, and a lamp for the limiter. It is
/// drawn at most 25 times a second, and told to screen readers once a second, both only while it changes.
class LQtLevelMeter : public QWidget, public LQtSpokenValue {
public:
    explicit LQtLevelMeter(QWidget* parent);

    void SetLevels(const LMeterLevels& levels);

    QSize sizeHint() const override { return {176, 26}; }
    QSize minimumSizeHint() const override { return {96, 20}; }

    Range GetSpoken() const override { return {LLevelMeter::Least, 0, meter.GetLoudest()}; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    /// Of what is drawn, from left to right; mirrored where the desktop is.
    QRectF Place(double left, double top, double right, double bottom) const;
    double GetScaleWidth() const;
    double GetBarsHeight() const;
    QFont GetMarkFont() const;
    void PaintBar(QPainter& painter, const LLevelMeter::Channel& channel, double top, double bottom) const;
    void PaintMarks(QPainter& painter) const;
    void PaintLamp(QPainter& painter) const;
    void Tell();

    LLevelMeter meter;
    QBasicTimer frames; ///< runs only while something moves
    QBasicTimer calm;   ///< since the meter was told
};
