#pragma once

#include "gui/list_view_peer.h"

#include <QTreeWidget>

#include <optional>

/// A list of rows, any number of them selected.
class LQtListWidget : public QTreeWidget {
public:
    static constexpr int ShadeRole = Qt::UserRole; ///< of a row's first text: its `LRowShade`

    explicit LQtListWidget(QWidget* parent);

    /// Where the user's actions go; none may be set.
    void SetEvents(LListViewEvents* listEvents) { events = listEvents; }
    void EnableDragging();
    void SetColumns(const std::vector<LListColumn>& shown);
    /// Aligns the row's texts as the columns are.
    void AlignValues(QTreeWidgetItem& item) const;
    /// Of the header and all rows.
    int GetFullHeight() const;
    /// On the screen, where the last right click was, by mouse or keyboard.
    QPoint GetMenuPlace() const { return menuPlace; }

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int RowBelow(const QPoint& position) const;
    bool Accepts(const QDropEvent& event) const;
    void ShowDropLine(std::optional<int> before);

    void MeasureAnew();
    void MeasureLater();
    void FitColumns();

    LListViewEvents* events = nullptr;
    QPoint menuPlace;
    std::optional<int> dropBefore; ///< the row before which what is dragged would be dropped
    std::vector<LListColumn> columns;
    std::vector<int> asked; ///< how wide each column would be; empty until the rows have been measured
    bool measured = true;   ///< `asked` follows from the texts as they are
};
