#pragma once

#include "gui/file_chooser.h"
#include "gui/main_window_peer.h"

#include <functional>
#include <optional>

/// Makes the peers of windows, and stands for the desktop: one for the process, which outlives
/// every window. UI thread only, but for `Post`.
class LToolkit {
public:
    virtual ~LToolkit() = default;

    virtual std::unique_ptr<LMainWindowPeer> CreateMainWindow(LWindowEvents& events) = 0;
    /// A dialog without controls yet, over the window that is active.
    virtual std::unique_ptr<LDialogPeer> CreateDialog(const LDialogLayout& layout, LWindowEvents& events) = 0;
    /// Asks for one file; none where the user cancels. The name is as it was typed or picked.
    virtual std::optional<LChosenFile> ChooseFile(const LFileChooser& chooser, LFilePurpose purpose) = 0;

    /// Opens an address or a local page with the program that the user has for it; false where there is none.
    virtual bool OpenUrl(const std::string& url) = 0;

    /// True once the desktop, or who started the program, has asked it to end; the user has not.
    virtual bool IsSessionEnding() const = 0;

    /// Waits for events and delivers them until `Quit`.
    virtual void Run() = 0;
    virtual void Quit() = 0;
    /// Delivers what has happened so far, without waiting.
    virtual void DispatchPending() = 0;
    /// Calls from the event loop, soon and in the order posted. Any thread.
    virtual void Post(std::function<void()> call) = 0;
};
