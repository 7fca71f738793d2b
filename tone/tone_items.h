#pragma once

#include "tone/tone_data.h"

#include <vector>

/// Items: the editable values of a tone, by number. An item is a kind (times 256) and, where there is one per
/// component, the component 0..15. `SonvireData` names, shows, parses and steps them.
enum ToneItemKind : unsigned int {
    ItemStartLeft = 256,
    ItemStartRight = 512,
    ItemEndLeft = 768,
    ItemEndRight = 1024,
    ItemAmplitude = 1280,
    ItemDuration = 1536, ///< one for all components
    ItemWaveform = 1792, ///< has a name but no value
};

/// The items that a tone shows, in the order of its rows. Noise and lists show one: the duration, or the
/// waveform where they have none.
std::vector<unsigned int> GetShownItems(const SonvireData& tone);
