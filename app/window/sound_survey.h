#pragma once

#include "app/window/sound_request.h"
#include "gui/shown_sound.h"

#include <functional>

/// Reads a sound and shows what it is: first its beginning, as fast as can be, then all of it, but no more
/// than `MostSeconds` or, where it has no end, `EndlessSeconds`. `isWanted` is asked every few milliseconds;
/// nothing is shown once it says no. Runs on a thread of its own, which ends with it.
class SoundSurvey {
public:
    static constexpr std::size_t FirstFrames = 1 << 16; // 1.5 s at 44.1 kHz
    static constexpr double EndlessSeconds = 10, MostSeconds = 600;

    static void Run(const SoundRequest& request, const std::function<bool()>& isWanted,
                    const std::function<void(LShownSoundPtr)>& show);
};
