#include "gui/qt/qt_list_view.h"

#include "gui/qt/qt_drop.h"
#include "gui/qt/qt_menu.h"
#include "gui/qt/qt_text.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <memory>

namespace {

constexpr int RowSpace = 8; // between the texts of two rows

} // namespace

LQtListWidget::LQtListWidget(QWidget* parent) : QTreeWidget(parent) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle); // of a path both ends matter
    setAcceptDrops(false);             // left to the window
    header()->setSectionsMovable(false);
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

LQtListView::LQtListView(LQtListWidget& listWidget, LListViewEvents& listEvents)
    : list(&listWidget),
      events(listEvents) {
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

void LQtListView::SetColumns(const std::vector<std::string>& titles) {
    QStringList labels;
    for (const std::string& title : titles)
        labels.append(ToQt(title));
    list->setColumnCount(static_cast<int>(titles.size()));
    list->setHeaderLabels(labels);
    list->header()->setSectionResizeMode(QHeaderView::Stretch);
}

void LQtListView::InsertRow(int row, const std::vector<std::string>& texts) {
    const QSignalBlocker blocker(list);
    auto item = std::make_unique<QTreeWidgetItem>();
    item->setFlags(item->flags() & ~Qt::ItemIsDropEnabled);
    item->setSizeHint(0, QSize(0, list->fontMetrics().height() + RowSpace));
    for (std::size_t column = 0; column < texts.size(); ++column)
        item->setText(static_cast<int>(column), ToQt(texts[column]));
    list->insertTopLevelItem(row, item.release()); // the list owns it from here on
}

void LQtListView::DeleteRow(int row) {
    const QSignalBlocker blocker(list);
    const std::unique_ptr<QTreeWidgetItem> removed(list->takeTopLevelItem(row));
}

void LQtListView::SetText(int row, int column, const std::string& text) {
    if (QTreeWidgetItem* item = list->topLevelItem(row))
        item->setText(column, ToQt(text));
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
