#pragma once

#include "gui/list_view_peer.h"

#include <QPointer>
#include <QTreeWidget>

/// A list of rows, any number of them selected.
class LQtListWidget : public QTreeWidget {
public:
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
    void dropEvent(QDropEvent* event) override;

private:
    int RowBelow(const QPoint& position) const;
    bool Accepts(const QDropEvent& event) const;

    void MeasureLater();
    void FitColumns();

    LListViewEvents* events = nullptr;
    QPoint menuPlace;
    std::vector<LListColumn> columns;
    std::vector<int> asked; ///< how wide each column would be
    bool measured = true;   ///< `asked` follows from the texts as they are
};

/// A list's peer. The list may go before it does.
class LQtListView : public LListViewPeer {
public:
    /// `pixels` is how large the unit of the layout is.
    LQtListView(LQtListWidget& listWidget, LListViewEvents& listEvents, double pixels);
    ~LQtListView() override;

    void SetColumns(const std::vector<LListColumn>& columns) override;
    void InsertRow(int row, const std::vector<std::string>& texts) override;
    void DeleteRow(int row) override;
    void SetText(int row, int column, const std::string& text) override;
    void SetLook(int row, const LRowLook& look) override;
    int GetHeight() const override;
    void SetSelection(const std::vector<int>& rows, int current) override;
    void EnableDragging() override;
    std::unique_ptr<LMenuPeer> CreatePopupMenu() override;

private:
    void TellSelection();
    QItemSelection Ranges(std::vector<int> rows) const;

    QPointer<LQtListWidget> list;
    LListViewEvents& events;
    double unit;
    std::vector<QMetaObject::Connection> connections;
};
