#pragma once

#include "gui/sound_view.h"

#include <QFont>
#include <QPalette>
#include <QRectF>

class QPainter;

/// The colour of a channel's curve, which can be told from the other one's in dark and light themes, and by
/// those who see few colours.
QColor GetChannelColour(const QPalette& palette, std::size_t channel);

/// Paints one plot of a sound view: axes, curves and what is read off.
class LQtSoundPlot {
public:
    /// `whole` is the room of the plot and its marks. All must outlive this.
    LQtSoundPlot(const LSoundView& shown, LPlot plotKind, const QRectF& whole, const QFont& marks,
                 const QPalette& colours);

    const QRectF& GetArea() const { return area; }
    void Paint(QPainter& painter) const;
    void PaintReading(QPainter& painter, const LSoundView::Reading& reading) const;

private:
    double GetX(double place) const { return area.left() + place * area.width(); }
    double GetY(double value) const { return area.bottom() - vertical.GetPlace(value) * area.height(); }
    /// Calls with the middle of each column of the screen's pixels, and what the axis has there.
    void ForEachColumn(const QPainter& painter,
                       const std::function<void(double x, double from, double to)>& call) const;
    void PaintAxes(QPainter& painter) const;
    void PaintSamples(QPainter& painter, std::size_t channel) const;
    void PaintEnvelope(QPainter& painter, std::size_t channel) const;
    void PaintSpectrum(QPainter& painter, std::size_t channel) const;

    const LSoundView& view;
    LPlot plot;
    const QFont& font;
    const QPalette& palette;
    LAxis vertical;
    LTicks rows, columns;
    QRectF area; ///< within the axes
};
