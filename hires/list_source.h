#pragma once

#include "hires/tone_source.h"
#include "tone/tone_list_report.h"

#include <functional>
#include <string>

/// Opens a sound file at a rate, as a source that holds next to nothing until it is read.
using HiresFileOpener = std::function<HiresTone(const std::string& path, int rate)>;

/// Opens a list, given as what was found in it: tones, files and silences one after the other, each tone with
/// its fades and noise with a seed of its own, files at their own level. Entries that can't be used are left
/// out. Nothing is reached behind a tone without an end, nor behind one that loops a list, which then goes on
/// for ever. Where a tone would exceed full scale the list is refused, or all its tones are lowered. The news
/// of `list` are told of what has changed or gone once its turn comes.
/// Thread: builder. Reading it blocks for files, and allocates for the next entry.
HiresTone OpenHiresList(const ToneListReport& list, const HiresSettings& settings,
                        const HiresFileOpener& openFile);
