#pragma once

#include "hires/tone_source.h"
#include "tone/tone_list_report.h"

#include <functional>
#include <string>

/// Opens a sound file at a rate, as a source that holds next to nothing until it is read.
using HiresFileOpener = std::function<HiresTone(const std::string& path, int rate)>;

/// Opens a list, given as what was found in it: tones, files and silences one after the other, each tone with
/// its fades, files at their own level. Entries that can't be used are left out, and nothing is reached
/// behind an endless one. Where a tone would exceed full scale the list is refused, or all its tones are
/// lowered. Thread: builder. Reading it blocks for files, and allocates for the next entry.
HiresTone OpenHiresList(const ToneListReport& list, const HiresSettings& settings,
                        const HiresFileOpener& openFile);
