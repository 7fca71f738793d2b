#pragma once

#include "gui/level_meter.h"
#include "gui/qt/qt_calm_text.h"
#include "gui/qt/qt_spoken_text.h"

#include <QBasicTimer>
#include <QWidget>

/// A level meter: a bar with a peak mark for each channel over one scale, and a lamp for the limiter. It is
/// drawn at most 25 times a second, and told to screen readers once a second, both only while it changes.
class LQtLevelMeter : public QWidget, public LQtSpokenText {
public:
    explicit LQtLevelMeter(QWidget* parent);

    void SetLevels(const LMeterLevels& levels);

    QSize sizeHint() const override { return {176, 26}; }
    QSize minimumSizeHint() const override { return {96, 20}; }

    QString GetSpoken() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    /// Of what is drawn, from left to right; mirrored where the desktop is.
    QRectF Place(double left, double top, double right, double bottom) const;
    QRectF PlaceLamp() const;
    double GetScaleWidth() const { return width() - lampWidth - 6; }
    double GetBarsHeight() const { return height() - numbersHeight; }
    void Measure();
    void PaintBar(QPainter& painter, const LLevelMeter::Channel& channel, double top, double bottom) const;
    void PaintMarks(QPainter& painter) const;
    void PaintNumbers(QPainter& painter) const;
    void PaintLamp(QPainter& painter) const;
    /// What of the bars can be told apart on the screen.
    std::vector<int> GetPicture() const;

    QFont markFont;
    double lampWidth = 0, numbersHeight = 0; ///< in that font
    LLevelMeter meter;
    std::vector<int> drawn; ///< the last picture
    QBasicTimer frames;     ///< runs only while something moves
    LQtCalmText spoken{*this, *this};
};
