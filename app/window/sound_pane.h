#pragma once

#include "app/window/newest_work.h"
#include "app/window/sound_request.h"
#include "gui/sound_view_peer.h"

#include <memory>
#include <optional>

class LMenu;
class LWindow;
class WayBack;
struct LRect;

/// The pane that shows what is about to sound: its wave, its spectrum and its figures, found in the
/// background. Shut, or without room, it does nothing at all. UI thread only.
class SoundPane {
public:
    /// Both must outlive this.
    SoundPane(LWindow& owner, const SonvireData& currentTone);
    ~SoundPane() { Leave(); }
    SoundPane(const SoundPane&) = delete;
    SoundPane& operator=(const SoundPane&) = delete;

    /// Puts it into the window, as the settings have it, and takes it out.
    void Create();
    void Destroy();
    /// After every change of the tone.
    void Follow();

    /// Opens, shuts or otherwise does what a command of the View menu says; false for any other command.
    bool Change(int command);
    void MarkMenuItems(LMenu& menu) const;
    std::unique_ptr<LMenuPeer> CreatePopupMenu() { return peer->CreatePopupMenu(); }

    /// How high it is at least in a window that has so much room for it, a list and texts of these heights:
    /// only its line of figures is shown where it would leave too little of them; 0 where it is shut.
    int GetHeight(int room, int list, int texts) const;
    /// Without height it gives way.
    void Place(const LRect& room);
    /// It is open, and has room for its figures only.
    bool GivesWay() const { return isOpen && height < peer->GetPlotsHeight(); }

private:
    void Ask();
    /// Nothing comes back any more.
    void Leave();

    LWindow& window;
    const SonvireData& tone;
    std::shared_ptr<WayBack> back;
    NewestWork work;
    std::unique_ptr<LSoundViewPeer> peer;
    std::optional<SoundRequest> asked; ///< what is shown, or about to be
    LSoundLook look;
    bool isOpen = false;
    int height = 0; ///< that it has; 0: it is not shown
};
