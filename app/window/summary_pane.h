#pragma once

#include "tone/tone_data.h"

struct LRect;
class LWindow;

/// The room under the list: what the tone is, and the keys to start with.
class SummaryPane {
public:
    /// The window must outlive this.
    explicit SummaryPane(LWindow& owner) : window(owner) {}

    /// Puts its texts into the window.
    void Create();
    /// After every change of the tone; after one of its rows the texts are to be placed anew.
    void Show(const SonvireData& tone);
    /// Of all texts but the level, which is told by the figures of the sound where these are shown.
    int GetHeight() const;
    /// One below the other, with the level or without; answers where the last one ends. Those that have no
    /// room stand below `beyond`, out of sight.
    int Place(const LRect& room, int beyond, bool withLevel);

private:
    LWindow& window;
};
