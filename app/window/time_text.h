#pragma once

#include "sound/sound_time.h"

#include <cstdint>
#include <string>

struct ToneListLength;

/// What a clock shows, tenths at the end: "02:03.4"; from an hour on, "1:02:03.4".
std::string FormatTime(LSoundTime time);

/// A length that words tell, to the millisecond: "0.25 s"; from a minute on like a clock, "02:03.4" or
/// "02:03.456".
std::string FormatLength(std::int64_t ms);
/// To the hundredth, as each entry ends with a whole frame; "02:03.4 or more" where some of it is not known.
std::string FormatLength(const ToneListLength& length);
