// Any text typed for any item, then every step and text of it.

#include "tone/tone_items.h"

#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4)
        return 0;
    std::uint16_t item;
    std::memcpy(&item, data, sizeof item);
    SonvireData tone;
    tone.flags = data[2];
    tone.waveform = data[3];
    static_cast<void>(
        tone.SetItemValue(item, std::string(reinterpret_cast<const char*>(data) + 4, size - 4).c_str()));
    tone.IncreaseItemLarge(item);
    tone.DecreaseItemLarge(item);
    const FrequencyStep step{.bySemitones = (data[2] & 1) != 0, .semitones = data[3], .hz = data[3] / 2.0};
    tone.IncreaseItem(item, step);
    tone.DecreaseItem(item, step);
    (void)tone.GetItemName(item);
    (void)tone.GetItemValue(item);
    return 0;
}
