#pragma once

#include "gui/qt/qt_message_boxes.h"
#include "gui/qt/qt_session_end.h"
#include "gui/toolkit.h"

#include <QApplication>

/// The windows of the program on Qt Widgets. Shows the message boxes too. One for the process, made in
/// `main`.
class LQtToolkit : public LToolkit {
public:
    /// Takes Qt's own options out of the arguments, which must outlive it.
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
    QApplication application;
    LQtSessionEnd sessionEnd;
    LQtMessageBoxes messageBoxes{sessionEnd};
};
