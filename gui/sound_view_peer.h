#pragma once

#include "gui/sound_view.h"

class LMenuPeer;

/// The toolkit's side of a sound view, which lets the user zoom, move about and read off by itself.
class LSoundViewPeer {
public:
    virtual ~LSoundViewPeer() = default;

    /// One that is not visible takes no room in the order of the keyboard either.
    virtual void SetVisible(bool visible) = 0;
    virtual void Show(LShownSoundPtr sound) = 0;
    virtual void SetLook(const LSoundLook& look) = 0;
    virtual void ResetZoom() = 0;
    /// How high it has to be for its plots, in units of the layout; where it is less, only the line of
    /// figures is shown.
    virtual int GetPlotsHeight() const = 0;
    /// The same for that line.
    virtual int GetFiguresHeight() const = 0;
    /// To the clipboard: what it looks like, in the screen's own pixels.
    virtual void CopyPicture() = 0;
    /// The same: its figures.
    virtual void CopyCsv() = 0;
    /// For an `LMenu` that returns a right click, as that of a list.
    virtual std::unique_ptr<LMenuPeer> CreatePopupMenu() = 0;
};
