#pragma once

#include "app/window/playback.h"
#include "gui/status_bar.h"
#include "gui/window.h"

#include <span>

/// The status bar: product, position, levels, and the output and volume as controls that keep the user's
/// choices in the settings.
class StatusFields : public PlaybackView {
public:
    static std::span<const LStatusItem> GetItems();

    /// The window must outlive this.
    explicit StatusFields(LWindow& owner) : window(owner) {}

    /// Fills the fields in, once the window has them.
    void Init();
    /// What can be chosen, besides the default output; the chosen one is offered even where it is not there.
    void SetDevices(const std::vector<std::string>& names);

    void SetLength(LSoundTime playedLength) override { length = playedLength; }
    void ShowPosition(LSoundTime position) override;
    void ShowLevels(const LDBMC& levels) override;
    void ShowStopped() override;

    /// Keep what the user has just chosen; a volume that is still being chosen is returned only.
    void StoreDevice();
    LDB StoreVolume();

private:
    void ShowVolume(int decibels);

    LWindow& window;
    LSoundTime length;
    std::size_t channels = 2; ///< that were shown last
};
