#pragma once

#include "gui/qt/qt_list_widget.h"

#include <QPointer>

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
