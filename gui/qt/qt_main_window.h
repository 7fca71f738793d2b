#pragma once

#include "gui/main_window_peer.h"
#include "gui/qt/qt_controls.h"
#include "gui/qt/qt_key_repeats.h"
#include "gui/qt/qt_passing_line.h"
#include "gui/qt/qt_status_fields.h"
#include "gui/qt/qt_title.h"

#include <QMainWindow>

/// The main window's peer and its window in one.
class LQtMainWindow : public LMainWindowPeer, private QMainWindow {
public:
    explicit LQtMainWindow(LWindowEvents& windowEvents);
    ~LQtMainWindow() override;

    LControlsPeer& Controls() override { return *controls; }
    void SetCaption(const std::string& text) override { title.SetCaption(text); }

    void SetDocument(const LWindowDocument& document) override { title.SetDocument(document); }
    void ShowPassing(const std::string& text) override;

    void SetGeometry(const LWindowGeometry& geometry) override;
    LWindowGeometry GetGeometry() const override;
    void Show() override;
    void Raise() override;
    void Hide() override { hide(); }

    std::unique_ptr<LMenuPeer> CreateMenuBar() override;
    std::unique_ptr<LToolBarPeer> CreateToolBar(LToolBarEvents& toolBarEvents) override;
    std::unique_ptr<LToolBarPeer> CreateSmallToolBar(int control, LToolBarEvents& toolBarEvents) override;
    void AddStatusItem(const LStatusItem& item) override;

private:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    bool TakesKey(const QObject& watched, const QKeyEvent& event);
    void FollowFrame();

    LWindowEvents& events;
    QWidget* content;
    LQtStatusFields* fields;
    LQtPassingLine* passing;
    std::unique_ptr<LQtControls> controls;
    LQtTitle title{*this};
    LQtKeyRepeats keyRepeats;
    QRect normalFrame;         ///< where the frame is or shall be while the window is not maximized
    QSize fittedMargins{0, 0}; ///< of the frame that the window was fitted into last
    bool hasStatusText = false;
};
