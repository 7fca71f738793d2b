#pragma once

#include "gui/toolkit.h"
#include "support/memory_window.h"
#include "sys/message_box.h"

#include <deque>
#include <mutex>

/// A toolkit without a display. What the program shows is kept in plain fields; what the user does comes from
/// scripts, each used once and in order. A box without a script takes its least consequence: Cancel, No, the
/// closed dialog.
class MemoryToolkit : public LToolkit, public LMessageBoxPort {
public:
    // What the user will do.
    std::deque<std::function<void(MemoryDialog&)>>
        dialogScripts;                   ///< a dialog is cancelled where one does not end it
    std::deque<LChosenFile> chosenFiles; ///< an empty path cancels
    std::deque<LMessageAnswer> answers;
    std::deque<int> popupChoices; ///< nothing is chosen that is disabled
    bool hasBrowser = true;
    bool sessionEnding = false;
    std::function<void(MemoryDialog&)> onDialog; ///< sees every dialog when it is made
    std::function<void()> running;         ///< the user's time with the main window; it closes afterwards
    std::function<void()> whileDispatched; ///< what happens each time pending events are delivered

    // What the program has shown.
    MemoryMainWindow* mainWindow = nullptr; ///< while there is one
    std::vector<std::string> boxes;         ///< "title|text" of each message box
    std::vector<LMessageButtons> boxButtons;
    std::vector<LFileChooser> choosers;
    std::vector<std::string> urls;
    MemoryMenu popup; ///< the last pop-up menu

    std::unique_ptr<LMainWindowPeer> CreateMainWindow(LWindowEvents& events) override;
    std::unique_ptr<LDialogPeer> CreateDialog(const LDialogLayout& layout, LWindowEvents& events) override;
    std::unique_ptr<LMenuPeer> CreatePopupMenu() override;
    std::optional<LChosenFile> ChooseFile(const LFileChooser& chooser, LFilePurpose purpose) override;
    bool OpenUrl(const std::string& url) override;
    bool IsSessionEnding() const override { return sessionEnding; }
    void Run() override;
    void Quit() override { quit = true; }
    void DispatchPending() override;
    void Post(std::function<void()> call) override;
    LMessageAnswer Show(const std::string& title, const std::string& text, LMessageButtons buttons) override;

    bool HasQuit() const { return quit; }

private:
    std::function<void()> TakePosted();

    std::mutex mutex;
    std::deque<std::function<void()>> posted; ///< under the mutex
    bool quit = false;
};
