#pragma once

#include "gui/list_view_peer.h"

#include <QPointer>
#include <QTreeWidget>

/// A list of rows in columns of equal width, any number of them selected.
class LQtListWidget : public QTreeWidget {
public:
    explicit LQtListWidget(QWidget* parent);

    /// Where the user's actions go; none may be set.
    void SetEvents(LListViewEvents* listEvents) { events = listEvents; }
    void EnableDragging();
    /// On the screen, where the last right click was, by mouse or keyboard.
    QPoint GetMenuPlace() const { return menuPlace; }

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    int RowBelow(const QPoint& position) const;
    bool Accepts(const QDropEvent& event) const;

    LListViewEvents* events = nullptr;
    QPoint menuPlace;
};

/// A list's peer. The list may go before it does.
class LQtListView : public LListViewPeer {
public:
    LQtListView(LQtListWidget& listWidget, LListViewEvents& listEvents);
    ~LQtListView() override;

    void SetColumns(const std::vector<std::string>& titles) override;
    void InsertRow(int row, const std::vector<std::string>& texts) override;
    void DeleteRow(int row) override;
    void SetText(int row, int column, const std::string& text) override;
    void SetSelection(const std::vector<int>& rows, int current) override;
    void EnableDragging() override;
    std::unique_ptr<LMenuPeer> CreatePopupMenu() override;

private:
    void TellSelection();
    QItemSelection Ranges(std::vector<int> rows) const;

    QPointer<LQtListWidget> list;
    LListViewEvents& events;
    std::vector<QMetaObject::Connection> connections;
};
