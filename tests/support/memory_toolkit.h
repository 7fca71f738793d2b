#pragma once

#include "gui/toolkit.h"
#include "support/memory_window.h"
#include "sys/desktop/message_box.h"

#include <deque>
#include <mutex>
#include <utility>

/// A toolkit without a display. What the program shows is kept in plain fields; what the user does comes from
/// scripts, each used once and in order. A box without a script takes its least consequence: Cancel, No, the
/// closed dialog.
class MemoryToolkit : public LToolkit, public LMessageBoxPort {
public:
    // What the user will do.
    std::deque<std::function<void(MemoryDialog&)>> dialogScripts; ///< cancelled where one does not end it
    std::deque<LChosenFile> chosenFiles;                          ///< an empty path cancels
    std::deque<LMessageAnswer> answers;
    std::deque<int> popupChoices; ///< nothing is chosen that is disabled
    bool hasBrowser = true;
    bool sessionEnding = false;
    std::function<void(MemoryDialog&)> onDialog; ///< sees every dialog when it is made
    std::function<void()> running;         ///< the user's time with the main window; it closes afterwards
    std::function<void()> whileDispatched; ///< what happens each time pending events are delivered

    // What the program has shown.
    MemoryMainWindow* mainWindow = nullptr; ///< while it runs
    std::vector<std::string> boxes;         ///< "title|text" of each message box
    std::vector<LMessageButtons> boxButtons;
    std::vector<LFileChooser> choosers;
    std::vector<std::string> urls;
    MemoryMenu popup; ///< the last pop-up menu
    bool quit = false;

    std::unique_ptr<LMainWindowPeer> CreateMainWindow(LWindowEvents& events) override {
        auto window = std::make_unique<MemoryMainWindow>(events);
        window->controls.makeMenu = [this] { return CreatePopupMenu(); };
        mainWindow = window.get();
        return window;
    }
    std::unique_ptr<LDialogPeer> CreateDialog(const LDialogLayout& /*layout*/,
                                              LWindowEvents& events) override {
        auto dialog = std::make_unique<MemoryDialog>(events);
        dialog->script = TakeNext(dialogScripts, {});
        dialog->controls.makeMenu = [this] { return CreatePopupMenu(); };
        if (onDialog)
            onDialog(*dialog);
        return dialog;
    }
    std::optional<LChosenFile> ChooseFile(const LFileChooser& chooser, LFilePurpose /*purpose*/) override {
        choosers.push_back(chooser);
        const LChosenFile chosen = TakeNext(chosenFiles, {});
        return chosen.path.empty() ? std::nullopt : std::optional(chosen);
    }
    LMessageAnswer Show(const std::string& title, const std::string& text, LMessageButtons buttons) override {
        boxes.push_back(title + "|" + text);
        boxButtons.push_back(buttons);
        using enum LMessageAnswer;
        const bool yesNo = buttons == LMessageButtons::YesNo || buttons == LMessageButtons::NoYes;
        const bool ok = buttons == LMessageButtons::Ok || buttons == LMessageButtons::OkFine;
        const LMessageAnswer least = ok ? Ok : yesNo ? No : Cancel;
        return TakeNext(answers, least);
    }
    bool OpenUrl(const std::string& url) override {
        urls.push_back(url);
        return hasBrowser;
    }
    bool IsSessionEnding() const override { return sessionEnding; }

    void Run() override {
        DispatchPending();
        running();
        DispatchPending();
        if (!quit)
            mainWindow->CloseWindow();
    }
    void Quit() override { quit = true; }
    void DispatchPending() override {
        if (whileDispatched)
            whileDispatched();
        while (const auto call = TakePosted())
            call();
    }
    void Post(std::function<void()> call) override {
        const std::scoped_lock lock(mutex);
        posted.push_back(std::move(call));
    }

private:
    std::unique_ptr<LMenuPeer> CreatePopupMenu() {
        auto menu = std::make_unique<MemoryMenu>();
        menu->choose = [this](const MemoryMenu& shown) {
            popup = shown;
            return popup.Pick(TakeNext(popupChoices, 0));
        };
        return menu;
    }
    template <class T>
    static T TakeNext(std::deque<T>& scripts, T otherwise) {
        if (scripts.empty())
            return otherwise;
        T next = std::move(scripts.front());
        scripts.pop_front();
        return next;
    }
    std::function<void()> TakePosted() {
        const std::scoped_lock lock(mutex);
        return TakeNext(posted, {});
    }

    std::mutex mutex;
    std::deque<std::function<void()>> posted; ///< under the mutex
};
