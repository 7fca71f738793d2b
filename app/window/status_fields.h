#pragma once

#include "app/window/playback.h"
#include "gui/status_bar.h"
#include "gui/window.h"

#include <span>
#include <string>
#include <vector>

/// The status bar: product, format, position, levels, and the output and volume as controls that keep the
/// user's choices in the settings.
class StatusFields : public PlaybackView {
public:
    static std::span<const LStatusItem> GetItems();

    /// The window must outlive this.
    explicit StatusFields(LWindow& owner) : window(owner) {}

    /// Fills the fields in, once the window has them.
    void Init();
    /// What there is to be chosen besides the default output. The chosen one is offered, and marked, where it
    /// is not there.
    void SetDevices(const std::vector<std::string>& names);

    void SetLength(LSoundTime length, bool loops) override;
    void ShowPosition(LSoundTime position) override;
    void ShowFormat(const LPlayFormat& format, double loweredDb) override;
    void ShowLevels(const LMeterLevels& levels) override;
    void ShowStopped() override;

    /// Keep what the user has just chosen; a volume that is still being chosen is returned only.
    void StoreDevice();
    LDB StoreVolume();
    /// Silent, or as loud as before.
    LDB ToggleMute();

private:
    void OfferDevices(const std::vector<std::string>& names, const char* missingMark);
    void ShowVolume(int decibels);

    LWindow& window;
    std::vector<std::string> devices; ///< the names of what the chooser offers
    std::string length;               ///< behind the position
    std::size_t channels = 2;         ///< that were shown last
};
