#pragma once

#include "gui/qt/qt_controls.h"
#include "gui/qt/qt_title.h"
#include "gui/window_peer.h"

#include <QDialog>

/// A dialog's peer and its window in one.
class LQtDialog : public LDialogPeer, private QDialog {
public:
    LQtDialog(const LDialogLayout& dialogLayout, LWindowEvents& windowEvents);

    LControlsPeer& Controls() override { return controls; }
    void SetCaption(const std::string& text) override { title.SetCaption(text); }
    void SetDocument(const LWindowDocument& document) override { title.SetDocument(document); }
    bool RunModal() override;
    void End(bool ok) override;
    void ShowModal() override;

private:
    /// Escape, and the button in the title bar.
    void reject() override { events.CloseAsked(); }
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    LWindowEvents& events;
    LQtControls controls;
    LQtTitle title{*this};
};
