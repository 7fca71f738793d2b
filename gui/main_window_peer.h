#pragma once

#include "gui/menu.h"
#include "gui/status_bar.h"
#include "gui/tool_bar.h"
#include "gui/window_peer.h"

/// Where the window stands on the desktop, measured on its whole frame; of a maximized window, where it would
/// stand otherwise.
struct LWindowGeometry {
    int x = 200;
    int y = 200;
    int width = 800;
    int height = 600;
    bool maximized = false;

    bool operator==(const LWindowGeometry&) const = default;
};

/// The toolkit's side of the main window. Its controls stand in the space that menu bar, tool bar and status
/// bar leave.
class LMainWindowPeer : public LWindowPeer {
public:
    /// A frame that is not whole on a screen is shifted, and made smaller where it has to be.
    virtual void SetGeometry(const LWindowGeometry& geometry) = 0;
    virtual LWindowGeometry GetGeometry() const = 0;
    /// A line over the start of the status bar that goes by itself after some seconds.
    virtual void ShowPassing(const std::string& text) = 0;
    virtual void Show() = 0;
    /// Brings the window before the others.
    virtual void Raise() = 0;
    virtual void Hide() = 0;

    virtual std::unique_ptr<LMenuPeer> CreateMenuBar() = 0;
    /// The main tool bar, with labels, above the controls.
    virtual std::unique_ptr<LToolBarPeer> CreateToolBar(LToolBarEvents& events) = 0;
    /// A tool bar of small icons without labels, which is a control itself.
    virtual std::unique_ptr<LToolBarPeer> CreateSmallToolBar(int control, LToolBarEvents& events) = 0;
    /// Adds a field to the right end of the status bar.
    virtual void AddStatusItem(const LStatusItem& item) = 0;
};
