#pragma once

#include <span>
#include <string>

/// What the window plays and saves tones in, as the play settings offer it.
struct Quality {
    const char* text;
    int savedRate; ///< of files in high quality, in frames per second; 0 is the standard quality

    bool IsHigh() const { return savedRate > 0; }
    /// What can be saved as it is, in Hz.
    int GetHighestFrequency() const;
};

std::span<const Quality> GetQualities();
/// The one that the settings name; the standard one where they name none that is offered.
const Quality& GetQuality();

/// Of frames per second: "44.1 kHz"
std::string DescribeRate(int rate);
