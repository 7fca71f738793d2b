#pragma once

#include "gui/sound_view_peer.h"

class LQtSoundView;

/// The peer of a sound view.
class LQtSoundViewPeer : public LSoundViewPeer {
public:
    /// Of a layout whose unit is this large. The widget outlives this.
    LQtSoundViewPeer(LQtSoundView& soundView, double pixels) : widget(soundView), unit(pixels) {}

    void SetVisible(bool visible) override;
    void Show(LShownSoundPtr sound) override;
    void SetLook(const LSoundLook& look) override;
    void ResetZoom() override;
    int GetPlotsHeight() const override;
    int GetFiguresHeight() const override;
    void CopyPicture() override;
    void CopyCsv() override;
    std::unique_ptr<LMenuPeer> CreatePopupMenu() override;

private:
    LQtSoundView& widget;
    double unit;
};
