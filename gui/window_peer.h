#pragma once

#include "gui/controls_peer.h"
#include "gui/key_map.h"

/// What the user does to a window, as its peer tells it.
class LWindowEvents {
public:
    virtual ~LWindowEvents() = default;

    /// A button, a menu entry or a chooser was used, a check box, a slider or a text changed: its id.
    virtual void ControlUsed(int id) = 0;
    /// So many steps up, or below 0 down, in a text: by the arrow keys or the wheel.
    virtual void ValueStepped(int /*id*/, int /*steps*/) {}
    /// A key; true where the window has used it.
    virtual bool KeyPressed(const LKeyPress& key) = 0;
    /// The user, or the end of the session, asks the window to close.
    virtual void CloseAsked() = 0;
    virtual void Resized(int width, int height) = 0;
    virtual void FilesDropped(const std::vector<std::string>& paths) = 0;
};

/// What a window shows, and a desktop tells windows apart by.
struct LWindowDocument {
    std::string name;
    std::string path{};   ///< empty where it has no file
    bool changed = false; ///< there is something that is not in its file
};

/// The toolkit's side of any window. Its events end with it.
class LWindowPeer {
public:
    virtual ~LWindowPeer() = default;

    virtual LControlsPeer& Controls() = 0;
    virtual void SetCaption(const std::string& caption) = 0;
    /// Names the document before the caption, with a mark where it has been changed.
    virtual void SetDocument(const LWindowDocument& document) = 0;
};

/// The toolkit's side of a dialog, modal to the whole application.
class LDialogPeer : public LWindowPeer {
public:
    /// Shows the dialog until `End`; returns what that was given.
    virtual bool RunModal() = 0;
    virtual void End(bool ok) = 0;
    /// Shows the dialog and returns; it goes with the peer.
    virtual void ShowModal() = 0;
};
