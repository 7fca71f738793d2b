#pragma once

#include "tone/tone_data.h"

// What a user learns of an item (tone/tone_items.h) while he types its value.

/// What a typed text would make of an item.
struct TypedItem {
    std::string value; ///< what `SetItemValue` takes; empty where the text is no value that can be set
    std::string words; ///< "= 1500.00Hz, F#6 +23 ct", or why it can't
};

/// Reads a text as people write values (tone/typed_value.h). A tone can be stored with any frequency, but
/// above half of the rate, `highestHz`, it sounds as another, or not at all.
TypedItem ReadTypedItem(const SonvireData& tone, unsigned int item, const std::string& text, int highestHz);
/// Unit, range and examples, such as "Hz, 0 to 22050; also 1.5k, A4, C#5 +3 ct".
std::string DescribeItemInput(unsigned int item, int highestHz);
/// The note of a frequency, the peak of a level in dBFS; empty for other items.
std::string DescribeItemValue(const SonvireData& tone, unsigned int item);
/// True where what is typed for the one can be meant for the other.
bool AreItemsAlike(unsigned int item, unsigned int other);
