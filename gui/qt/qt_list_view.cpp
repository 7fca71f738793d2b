#include "gui/qt/qt_list_view.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_drop.h"
#include "gui/qt/qt_icon.h"
#include "gui/qt/qt_menu.h"
#include "gui/qt/qt_tabular_font.h"
#include "gui/qt/qt_text.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <utility>

namespace {

constexpr int RowPadding = 8; // above and below a row's text
constexpr int ColumnSpace = 16;
constexpr int FirstPart = 3; // of the room, which the first column keeps
constexpr int MarkColumn = 1;
constexpr int ShadeRole = Qt::UserRole;
constexpr int MarkRole = Qt::UserRole + 1;

/// The room beside the texts, which belongs to the rows as well.
constexpr LListColumn Rest{.title = "", .fills = true};

/// A mark's picture, and what a screen reader says of it.
struct Mark {
    const char* icon;
    const char* name;
};

constexpr Mark Marks[] = {{"", ""}, {"problem", "Problem"}, {"endless", "Endless"}};

void ShowMark(QTreeWidgetItem& item) {
    const int mark = item.data(MarkColumn, MarkRole).toInt();
    const QString said = QString("%1: %2").arg(Marks[mark].name, item.text(MarkColumn));
    item.setIcon(MarkColumn, MakeIcon(Marks[mark].icon));
    item.setData(MarkColumn, Qt::AccessibleTextRole, mark == 0 ? QVariant() : QVariant(said));
}

bool IsShaded(const QModelIndex& index) {
    const auto shade = static_cast<LRowShade>(index.siblingAtColumn(0).data(ShadeRole).toInt());
    return shade == LRowShade::Alternate ? index.row() % 2 == 1 : shade == LRowShade::Shaded;
}

class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static int HeightFor(const QFontMetrics& font) { return font.height() + 2 * RowPadding; }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), HeightFor(option.fontMetrics)};
    }
};

} // namespace

LQtListWidget::LQtListWidget(QWidget* parent) : QTreeWidget(parent) {
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
        connect(model(), change, this, &LQtListWidget::MeasureLater);
    connect(model(), &QAbstractItemModel::dataChanged, this, &LQtListWidget::MeasureLater);
}

void LQtListWidget::SetColumns(const std::vector<LListColumn>& shown) {
    columns = shown;
    if (std::none_of(columns.begin(), columns.end(), [](const LListColumn& column) { return column.fills; }))
        columns.push_back(Rest);
    asked.clear();
    QStringList titles;
    for (const LListColumn& column : columns)
        titles.append(QString::fromUtf8(column.title));
    setColumnCount(static_cast<int>(columns.size()));
    setHeaderLabels(titles);
    AlignValues(*headerItem());
    MeasureLater();
}

void LQtListWidget::AlignValues(QTreeWidgetItem& item) const {
    for (int i = 0; i < static_cast<int>(columns.size()); ++i)
        if (columns[static_cast<std::size_t>(i)].values) {
            item.setTextAlignment(i, Qt::AlignRight | Qt::AlignVCenter);
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

/// Once for all the changes that are made together.
void LQtListWidget::MeasureLater() {
    if (!std::exchange(measured, false))
        return;
    const auto measure = [this] {
        measured = true;
        asked.clear();
        for (int i = 0; i < columnCount(); ++i) {
            const bool isRest = columns[static_cast<std::size_t>(i)].title == Rest.title;
            const int width = std::max(sizeHintForColumn(i), header()->sectionSizeHint(i)) + ColumnSpace;
            asked.push_back(isRest ? 0 : width);
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
    setDropIndicatorShown(true);
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
    QTreeWidget::dragMoveEvent(event); // draws where it would go
    event->setAccepted(Accepts(*event));
}

void LQtListWidget::dropEvent(QDropEvent* event) {
    const int before = RowBelow(event->position().toPoint());
    const bool own = event->source() == this;
    const std::vector<std::string> paths = LocalFilesIn(*event->mimeData());
    event->setDropAction(own ? Qt::IgnoreAction
                             : Qt::CopyAction); // the rows are moved by the owner of the list
    event->accept();
    stopAutoScroll();
    setState(NoState);
    // Once the drag is over: it still holds on to the rows.
    QTimer::singleShot(0, this, [this, own, paths, before] {
        if (!events)
            return;
        own ? events->RowsDragged(before) : events->FilesDropped(paths, before);
    });
}

LQtListView::LQtListView(LQtListWidget& listWidget, LListViewEvents& listEvents, double pixels)
    : list(&listWidget),
      events(listEvents),
      unit(pixels) {
    list->SetEvents(&events);
    const auto tell = [this] { TellSelection(); };
    connections = {
        QObject::connect(list, &QTreeWidget::itemSelectionChanged, list, tell),
        QObject::connect(list, &QTreeWidget::currentItemChanged, list, tell),
        QObject::connect(list, &QTreeWidget::itemDoubleClicked, list, [this] { events.DoubleClicked(); })};
}

LQtListView::~LQtListView() {
    for (const QMetaObject::Connection& connection : connections)
        QObject::disconnect(connection);
    if (list)
        list->SetEvents(nullptr);
}

void LQtListView::TellSelection() {
    std::vector<int> rows;
    for (const QModelIndex& index : list->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    events.SelectionChanged(rows, list->currentIndex().row());
}

void LQtListView::SetColumns(const std::vector<LListColumn>& columns) {
    list->SetColumns(columns);
}

void LQtListView::InsertRow(int row, const std::vector<std::string>& texts) {
    const QSignalBlocker blocker(list);
    auto item = std::make_unique<QTreeWidgetItem>();
    item->setFlags(item->flags() & ~Qt::ItemIsDropEnabled);
    for (std::size_t column = 0; column < texts.size(); ++column)
        item->setText(static_cast<int>(column), ToQt(texts[column]));
    list->AlignValues(*item);
    list->insertTopLevelItem(row, item.release()); // the list owns it from here on
}

void LQtListView::DeleteRow(int row) {
    const QSignalBlocker blocker(list);
    const std::unique_ptr<QTreeWidgetItem> removed(list->takeTopLevelItem(row));
}

void LQtListView::SetText(int row, int column, const std::string& text) {
    QTreeWidgetItem* item = list->topLevelItem(row);
    if (!item)
        return;
    item->setText(column, ToQt(text));
    ShowMark(*item);
}

void LQtListView::SetLook(int row, const LRowLook& look) {
    QTreeWidgetItem* item = list->topLevelItem(row);
    if (!item)
        return;
    item->setData(0, ShadeRole, static_cast<int>(look.shade));
    for (int column = 0; column < list->columnCount(); ++column)
        item->setToolTip(column, ToQt(look.toolTip));
    item->setData(MarkColumn, MarkRole, static_cast<int>(look.mark));
    ShowMark(*item);
}

int LQtListView::GetHeight() const {
    return list ? static_cast<int>(std::ceil(list->GetFullHeight() / unit)) : 0;
}

/// Few ranges, as there may be thousands of rows.
QItemSelection LQtListView::Ranges(std::vector<int> rows) const {
    std::sort(rows.begin(), rows.end());
    QItemSelection ranges;
    for (auto first = rows.begin(); first != rows.end();) {
        auto last = first;
        while (std::next(last) != rows.end() && *std::next(last) == *last + 1)
            ++last;
        ranges.append(QItemSelectionRange(list->model()->index(*first, 0), list->model()->index(*last, 0)));
        first = std::next(last);
    }
    return ranges;
}

void LQtListView::SetSelection(const std::vector<int>& rows, int current) {
    const QSignalBlocker blocker(list);
    const QItemSelection selection = Ranges(rows);
    const QModelIndex currentIndex = list->model()->index(current, 0);
    list->selectionModel()->setCurrentIndex(currentIndex, QItemSelectionModel::NoUpdate);
    list->selectionModel()->select(selection,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (currentIndex.isValid())
        list->scrollTo(currentIndex);
}

void LQtListView::EnableDragging() {
    list->EnableDragging();
}

std::unique_ptr<LMenuPeer> LQtListView::CreatePopupMenu() {
    return std::make_unique<LQtMenu>(list->GetMenuPlace());
}
