#include "gui/qt/qt_list_view.h"

#include "gui/qt/qt_icon.h"
#include "gui/qt/qt_menu.h"
#include "gui/qt/qt_text.h"

#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr int MarkColumn = 1;
constexpr int MarkRole = LQtListWidget::ShadeRole + 1;

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

} // namespace

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
    item->setData(0, LQtListWidget::ShadeRole, static_cast<int>(look.shade));
    const QString tip = ToQt(look.toolTip);
    for (int column = 0; column < list->columnCount(); ++column)
        item->setToolTip(column, Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip);
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
