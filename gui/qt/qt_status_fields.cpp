#include "gui/qt/qt_status_fields.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

constexpr int Gap = 8;
constexpr LStatusKind GivesWay[] = {LStatusKind::Chooser, LStatusKind::Level, LStatusKind::Text,
                                    LStatusKind::Remark, LStatusKind::Slider};

} // namespace

void LQtStatusFields::Add(QWidget* field, LStatusKind kind) {
    fields.push_back({field, kind});
    if (kind == LStatusKind::Text || kind == LStatusKind::Remark)
        field->setLayoutDirection(Qt::LeftToRight); // figures and units stay in their order
    updateGeometry();
}

int LQtStatusFields::GetGaps() const {
    return fields.empty() ? 0 : Gap * (static_cast<int>(fields.size()) - 1);
}

QSize LQtStatusFields::Measure(QSize (QWidgetItem::*size)() const) const {
    QSize all(GetGaps(), 0);
    for (const Field& field : fields) {
        const QSize one = (QWidgetItem(field.widget).*size)();
        all = QSize(all.width() + one.width(), std::max(all.height(), one.height()));
    }
    return all;
}

std::vector<int> LQtStatusFields::ShareWidth() const {
    std::vector<int> widths;
    int missing = GetGaps() - width();
    for (const Field& field : fields) {
        widths.push_back(QWidgetItem(field.widget).sizeHint().width());
        missing += widths.back();
    }
    for (const LStatusKind kind : GivesWay)
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (fields[i].kind != kind)
                continue;
            const int spare = widths[i] - QWidgetItem(fields[i].widget).minimumSize().width();
            const int given = std::clamp(missing, 0, std::max(0, spare));
            widths[i] -= given;
            missing -= given;
        }
    return widths;
}

void LQtStatusFields::Place() {
    const std::vector<int> widths = ShareWidth();
    int left = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        fields[i].widget->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(), QRect(left, 0, widths[i], height())));
        left += widths[i] + Gap;
    }
}

void LQtStatusFields::resizeEvent(QResizeEvent* /*event*/) {
    Place();
}

bool LQtStatusFields::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::LayoutDirectionChange) {
        if (const QSize wanted = sizeHint(); std::exchange(told, wanted) != wanted)
            updateGeometry(); // a clock that runs must not lay the window out anew
        Place();
    }
    return QWidget::event(event);
}
