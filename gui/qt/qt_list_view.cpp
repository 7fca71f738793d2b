#include "gui/qt/qt_list_view.h"

#include "gui/qt/qt_icon.h"
#include "gui/qt/qt_menu.h"
#include "gui/qt/qt_text.h"

#include <QSignalBlocker>
#include <QTextDocument>

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

/// Without a word to the view where nothing changes: there may be a great many rows.
void Set(QTreeWidgetItem& item, int column, int role, const QVariant& value) {
    if (item.data(column, role) != value)
        item.setData(column, role, value);
}

void ShowMark(QTreeWidgetItem& item) {
    const Mark& mark = Marks[item.data(MarkColumn, MarkRole).toInt()];
    const bool isNone = &mark == Marks;
    const QString said = QString("%1: %2").arg(mark.name, item.text(MarkColumn));
    Set(item, MarkColumn, Qt::DecorationRole, isNone ? QVariant() : QVariant(MakeIcon(mark.icon)));
    Set(item, MarkColumn, Qt::AccessibleTextRole, isNone ? QVariant() : QVariant(said));
}

QVariant ToToolTip(const std::string& text) {
    const QString tip = ToQt(text);
    if (tip.isEmpty())
        return {};
    return Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip;
}

/// As an invalid value where it is 0, like one that is not set.
QVariant ToValue(auto number) {
    return static_cast<int>(number) == 0 ? QVariant() : QVariant(static_cast<int>(number));
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
    Set(*item, 0, LQtListWidget::ShadeRole, ToValue(look.shade));
    Set(*item, MarkColumn, MarkRole, ToValue(look.mark));
    for (int column = 0; column < list->columnCount(); ++column)
        Set(*item, column, Qt::ToolTipRole, ToToolTip(look.toolTip));
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
