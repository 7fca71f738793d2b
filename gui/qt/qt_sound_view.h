#pragma once

#include "gui/qt/qt_calm_text.h"
#include "gui/qt/qt_sound_plot.h"
#include "gui/qt/qt_spoken_text.h"
#include "gui/sound_view.h"

#include <QWidget>

#include <functional>
#include <optional>

/// Shows the wave and the spectrum of a sound side by side, below its figures. The pointer reads off, the
/// wheel zooms about it, a drag moves, a double click shows all again; with the keyboard the arrows read off
/// and "+" and "-" zoom.
class LQtSoundView : public QWidget, public LQtSpokenText {
public:
    explicit LQtSoundView(QWidget* parent);

    /// Changes what is shown, and paints it.
    void Change(const std::function<void(LSoundView& view)>& change);
    const LSoundView& GetView() const { return view; }
    /// On the screen, where the last right click was, by mouse or keyboard.
    QPoint GetMenuPlace() const { return menuPlace; }
    int GetPlotsHeight() const;
    int GetFiguresHeight() const;

    QString GetSpoken() const override;
    QAccessible::Role GetRole() const override { return QAccessible::Chart; }

    std::function<void()> onMenu = [] {}; ///< on a right click

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// A place of the widget, as one of a plot's axis.
    struct Spot {
        LPlot plot;
        double place;
        double width; ///< of the plot
    };
    std::optional<Spot> FindSpot(const QPointF& point) const;
    LQtSoundPlot GetPlot(LPlot plot) const;
    /// It is chosen, and there is room.
    bool HasPlot(LPlot plot) const { return view.HasPlot(plot) && height() >= GetPlotsHeight(); }
    double GetTextHeight() const;
    void PaintFigures(QPainter& painter) const;
    void PaintLines(QPainter& painter) const;
    void PaintLegend(QPainter& painter) const;

    LSoundView view;
    QFont markFont;
    LQtCalmText spoken{*this, *this};
    std::optional<QPointF> dragged; ///< from where, while the mouse is held
    QPoint menuPlace;
};
