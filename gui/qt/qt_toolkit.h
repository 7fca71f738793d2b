#pragma once

#include "gui/qt/qt_message_boxes.h"
#include "gui/qt/qt_session_end.h"
#include "gui/toolkit.h"

#include <QApplication>
#include <QSocketNotifier>

/// The windows of the program on Qt Widgets. Shows the message boxes too. One for the process, made in
/// `main`.
class LQtToolkit : public LToolkit {
public:
    static constexpr int NoDisplayStatus = 2;

    /// Takes Qt's own options out of the arguments, which must outlive it. Where there is no display, says so
    /// and ends the process with `NoDisplayStatus`.
    LQtToolkit(int& argc, char** argv);

    std::unique_ptr<LMainWindowPeer> CreateMainWindow(LWindowEvents& events) override;
    std::unique_ptr<LDialogPeer> CreateDialog(const LDialogLayout& layout, LWindowEvents& events) override;
    std::optional<LChosenFile> ChooseFile(const LFileChooser& chooser, LFilePurpose purpose) override;
    bool OpenUrl(const std::string& url) override;
    bool IsSessionEnding() const override { return sessionEnd.HasBegun(); }
    void Run() override;
    void Quit() override;
    void DispatchPending() override;
    void Post(std::function<void()> call) override;

private:
    /// Has Qt's way of failing without a display replaced while the application is made.
    struct DisplayCheck {
        DisplayCheck();
        void End() const;
    };

    DisplayCheck displayCheck;
    QApplication application;
    QSocketNotifier posted; ///< tells of `LThreadQueuedNotify`s
    LQtSessionEnd sessionEnd;
    LQtMessageBoxes messageBoxes{sessionEnd};
};
