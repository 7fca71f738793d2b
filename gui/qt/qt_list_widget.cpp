#include "gui/qt/qt_list_widget.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_drop.h"
#include "gui/qt/qt_tabular_font.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QProxyStyle>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <memory>
#include <numeric>
#include <utility>

namespace {

constexpr int RowPadding = 8; // above and below a row's text
constexpr int SidePadding = 7, HeaderPadding = 6;
constexpr int ColumnSpace = 8;
constexpr int FirstPart = 2; // of the room, which the first column keeps
constexpr int LineWidth = 3; // of the line where a drop would go
constexpr int LabelWidth = 240;
constexpr int LabelMargin = 4;
constexpr QChar LeftToRight(0x202A), EndOfDirection(0x202C);
constexpr Qt::Alignment ValueAlignment = Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter;
constexpr QPoint PointerRoom(16, 16); // between the pointer and what it drags

/// The room beside the texts, which belongs to the rows as well.
constexpr LListColumn Rest{.title = "", .fills = true};

bool IsShaded(const QModelIndex& index) {
    const auto shade =
        static_cast<LRowShade>(index.siblingAtColumn(0).data(LQtListWidget::ShadeRole).toInt());
    return shade == LRowShade::Alternate ? index.row() % 2 == 1 : shade == LRowShade::Shaded;
}

/// Texts stand away from the edges, as they do elsewhere in the window.
class RoomyStyle : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        if (metric == PM_FocusFrameHMargin)
            return SidePadding;
        return metric == PM_HeaderMargin ? HeaderPadding : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static int HeightFor(const QFontMetrics& font) { return font.height() + 2 * RowPadding; }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), HeightFor(option.fontMetrics)};
    }

protected:
    /// In a mirrored window "-6dB" and "/home" would read "6dB-" and "home/".
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->direction == Qt::RightToLeft && !option->text.isRightToLeft())
            option->text = LeftToRight + option->text + EndOfDirection;
    }
};

} // namespace

LQtListWidget::LQtListWidget(QWidget* parent) : QTreeWidget(parent) {
    auto* roomy = new RoomyStyle;
    roomy->setParent(this);
    setStyle(roomy);
    header()->setStyle(roomy);
    SetColumns({});
    setRootIsDecorated(false);
    setItemDelegate(MakeChild<RowDelegate>(static_cast<QObject*>(this)));
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle); // of a path both ends matter
    setAcceptDrops(false);             // left to the window
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setStretchLastSection(false);
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model(), change, this, &LQtListWidget::MeasureAnew);
    connect(model(), &QAbstractItemModel::dataChanged, this, &LQtListWidget::MeasureLater);
}

void LQtListWidget::SetColumns(const std::vector<LListColumn>& shown) {
    columns = shown;
    MeasureAnew();
    if (std::none_of(columns.begin(), columns.end(), [](const LListColumn& column) { return column.fills; }))
        columns.push_back(Rest);
    QStringList titles;
    for (const LListColumn& column : columns)
        titles.append(QString::fromUtf8(column.title));
    setHeaderItem(std::make_unique<QTreeWidgetItem>(titles).release()); // which the list owns
    AlignValues(*headerItem());
}

void LQtListWidget::AlignValues(QTreeWidgetItem& item) const {
    for (int i = 0; i < static_cast<int>(columns.size()); ++i)
        if (columns[static_cast<std::size_t>(i)].values) {
            item.setTextAlignment(i, ValueAlignment);
            item.setFont(i, WithTabularFigures(QFont()));
        }
}

int LQtListWidget::GetFullHeight() const {
    return header()->sizeHint().height() + topLevelItemCount() * RowDelegate::HeightFor(fontMetrics()) +
           2 * frameWidth();
}

void LQtListWidget::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    if (IsShaded(index))
        painter->fillRect(option.rect, option.palette.alternateBase());
    QTreeWidget::drawRow(painter, option, index);
}

void LQtListWidget::resizeEvent(QResizeEvent* event) {
    QTreeWidget::resizeEvent(event);
    FitColumns();
}

void LQtListWidget::MeasureAnew() {
    asked.clear();
    MeasureLater();
}

/// Once for all the changes that are made together. As long as the rows stay, no column gets narrower: it
/// would jump under a value that is stepped.
void LQtListWidget::MeasureLater() {
    if (!std::exchange(measured, false))
        return;
    const auto measure = [this] {
        measured = true;
        asked.resize(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const int column = static_cast<int>(i);
            const int text = std::max(sizeHintForColumn(column), header()->sectionSizeHint(column));
            asked[i] = columns[i].title == Rest.title ? 0 : std::max(asked[i], text + ColumnSpace);
        }
        FitColumns();
    };
    QMetaObject::invokeMethod(this, measure, Qt::QueuedConnection);
}

void LQtListWidget::FitColumns() {
    const int room = viewport()->width();
    int left = room - std::accumulate(asked.begin(), asked.end(), 0);
    for (std::size_t i = 0; i < asked.size(); ++i) {
        const int least = std::min(asked[i], i == 0 ? room / FirstPart : 0);
        const int change = left < 0 ? std::max(left, least - asked[i]) : columns[i].fills ? left : 0;
        header()->resizeSection(static_cast<int>(i), asked[i] + change);
        left -= change;
    }
}

void LQtListWidget::EnableDragging() {
    setDragDropMode(DragDrop);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false); // which is faint: see ShowDropLine
}

/// A label beside the pointer, rather than the rows themselves, which would cover where they go.
void LQtListWidget::startDrag(Qt::DropActions /*actions*/) {
    const QModelIndexList rows = selectionModel()->selectedRows();
    if (rows.isEmpty())
        return;
    const QString name =
        fontMetrics().elidedText(rows.front().data().toString(), textElideMode(), LabelWidth);
    QLabel label(rows.size() == 1 ? name : QString("%1 (+%2)").arg(name).arg(rows.size() - 1));
    label.setTextFormat(Qt::PlainText);
    label.setPalette(QToolTip::palette());
    label.setFrameShape(QFrame::Box);
    label.setMargin(LabelMargin);
    auto* drag = MakeChild<QDrag>(this); // which Qt destroys once it is over
    drag->setMimeData(model()->mimeData(selectedIndexes()));
    drag->setPixmap(label.grab());
    drag->setHotSpot(-PointerRoom);
    drag->exec(Qt::MoveAction);
}

void LQtListWidget::ShowDropLine(std::optional<int> before) {
    dropBefore = before;
    viewport()->update();
}

/// With an edge in the colour of the ground, so that it stands out from a selected row as well.
void LQtListWidget::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    if (!dropBefore)
        return;
    const bool behindAll = *dropBefore == topLevelItemCount();
    const QRect row = visualItemRect(topLevelItem(behindAll ? *dropBefore - 1 : *dropBefore));
    const int y = std::max(behindAll ? row.bottom() : row.top(), LineWidth / 2 + 1);
    const QRect line(0, y - LineWidth / 2, viewport()->width(), LineWidth);
    QPainter painter(viewport());
    painter.fillRect(line.adjusted(0, -1, 0, 1), palette().base());
    painter.fillRect(line, palette().highlight());
}

void LQtListWidget::contextMenuEvent(QContextMenuEvent* event) {
    menuPlace = event->reason() == QContextMenuEvent::Keyboard
                    ? viewport()->mapToGlobal(visualItemRect(currentItem()).bottomLeft())
                    : event->globalPos();
    if (events)
        events->RightClicked();
}

int LQtListWidget::RowBelow(const QPoint& position) const {
    const QModelIndex index = indexAt(position);
    if (!index.isValid())
        return topLevelItemCount();
    return index.row() + (position.y() > visualRect(index).center().y() ? 1 : 0);
}

bool LQtListWidget::Accepts(const QDropEvent& event) const {
    return events && (event.source() == this || !LocalFilesIn(*event.mimeData()).empty());
}

void LQtListWidget::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(Accepts(*event));
}

void LQtListWidget::dragMoveEvent(QDragMoveEvent* event) {
    QTreeWidget::dragMoveEvent(event); // scrolls where it is at an end
    event->setAccepted(Accepts(*event));
    ShowDropLine(event->isAccepted() ? std::optional(RowBelow(event->position().toPoint())) : std::nullopt);
}

void LQtListWidget::dragLeaveEvent(QDragLeaveEvent* event) {
    QTreeWidget::dragLeaveEvent(event);
    ShowDropLine({});
}

void LQtListWidget::dropEvent(QDropEvent* event) {
    const int before = RowBelow(event->position().toPoint());
    const bool own = event->source() == this;
    const std::vector<std::string> paths = LocalFilesIn(*event->mimeData());
    event->setDropAction(own ? Qt::IgnoreAction
                             : Qt::CopyAction); // the rows are moved by the owner of the list
    event->accept();
    stopAutoScroll();
    ShowDropLine({});
    setState(NoState);
    // Once the drag is over: it still holds on to the rows.
    QTimer::singleShot(0, this, [this, own, paths, before] {
        if (!events)
            return;
        own ? events->RowsDragged(before) : events->FilesDropped(paths, before);
    });
}
