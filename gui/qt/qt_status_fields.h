#pragma once

#include "gui/status_bar.h"

#include <QLayoutItem>
#include <QWidget>
#include <QWidgetItem>

#include <vector>

/// Fields of a status bar side by side, all of one height. Where they have less room than they want, they
/// give way by their kinds, one after the other, each down to its least width.
class LQtStatusFields : public QWidget {
public:
    using QWidget::QWidget;

    /// A child of this.
    void Add(QWidget* field, LStatusKind kind);

    QSize sizeHint() const override { return Measure(&QWidgetItem::sizeHint); }
    QSize minimumSizeHint() const override { return Measure(&QWidgetItem::minimumSize); }

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Field {
        QWidget* widget;
        LStatusKind kind;
    };
    QSize Measure(QSize (QWidgetItem::*size)() const) const;
    int GetGaps() const;
    std::vector<int> ShareWidth() const;
    void Place();

    std::vector<Field> fields;
    QSize told; ///< the size that was wanted last
};
