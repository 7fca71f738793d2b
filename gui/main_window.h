#pragma once

#include "gui/main_window_peer.h"
#include "gui/window.h"

/// The window that the program lives in: menu bar, tool bar, controls, status bar. `Run` brings it on the
/// screen and returns when it has closed, and with it the program.
class LMainWindow : public LWindow {
public:
    /// The arguments are those of the process, which keep to the end of it.
    LMainWindow(LToolkit& windowToolkit, int argumentCount, const char* const* arguments);
    ~LMainWindow() override;

    /// Start-up, in this order: the window is created, `InitDialog`, its geometry, `EvStarted`, documents
    /// that have already arrived, shown, `EnableControls`, `EvRunArguments`, events until the end; then
    /// `DestroyDialog`.
    void Run();

    /// Opens documents that the desktop hands over, one after the other: at once, or once the window stands.
    /// While some wait for that, more are ignored.
    void OpenDocuments(const std::vector<std::string>& paths);
    /// Takes a file that a second start of the program was given as the first start takes its argument.
    void OpenArgument(const std::string& path);
    /// Remembers a file that was to be opened, which the end has come before.
    virtual void KeepForLater(const std::string& /*path*/) {}
    /// Brings the window to the front.
    void Activate();
    /// Between the end of its creation and its end; outside, it opens nothing.
    bool IsStanding() const { return standing; }

protected:
    virtual void CmLoadFiles(const std::vector<std::string>& /*paths*/) {}
    virtual void EvRunArguments(const char* const* /*arguments*/, int /*count*/) {}
    /// The window stands, and takes documents from here on.
    virtual void EvStarted() {}
    /// Remembers the geometry from one run to the next.
    virtual LWindowGeometry ReadGeometry() { return {}; }
    virtual void WriteGeometry(const LWindowGeometry& /*geometry*/) {}

    bool CmOk() override { return false; }
    /// Stores the geometry and ends the program.
    void Close(int ok) override;
    void ControlUsed(int id) override;
    bool KeyPressed(const LKeyPress& key) override;
    LWindowPeer* GetPeer() const override { return peer.get(); }

    // The tables of these must outlive the window. Ctrl+Q is the key of `LCommandQuit` in any main window.
    void SetMenu(std::span<const LMenuEntry> entries);
    void SetToolBar(std::span<const LToolBarItem> items);
    void SetToolBarSmallIcons(int control, LToolBar& toolBar, std::span<const LToolBarItem> items);
    void SetStatusBar(std::span<const LStatusItem> items);
    /// The keys go to the handler, whichever control of the window has the keyboard; while that is one that
    /// is typed or stepped in, only those that it has no use for. The menu shows them beside its entries, and
    /// the tool tips of the tool bars in brackets; both are set before.
    void SetKeys(LKeyHandler& handler, std::span<const LKeyMapEntry> table);

    void ShowPassing(const std::string& text) { peer->ShowPassing(text); }

    LMenu& GetMenu() const { return *menu; }
    LToolBar& GetToolBar() { return mainToolBar; }

private:
    void ShowKeysOf(std::span<const LKeyMapEntry> table);

    int argumentCount;
    const char* const* arguments;
    std::unique_ptr<LMainWindowPeer> peer;
    std::unique_ptr<LMenu> menu;
    LToolBar mainToolBar;
    std::vector<LToolBar*> toolBars; ///< the one above and those of small icons
    LKeyHandler* keys = nullptr;
    std::vector<std::string> waitingDocuments;
    bool standing = false;
};
