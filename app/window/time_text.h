#pragma once

#include "sound/sound_time.h"

#include <string>

/// Minutes, seconds and tenths: "02:03.4"; from an hour on, "1:02:03.4".
std::string FormatTime(LSoundTime time);
