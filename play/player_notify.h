#pragma once

#include "play/sound_heard.h"

/// What a player reports, on the thread that owns it. `id` is the number that the owner gave.
class LSoundPlayerNotify {
public:
    virtual ~LSoundPlayerNotify() = default;

    virtual void spntfPlay(long /*id*/) {}
    /// Stopped, by the owner, at the end or by a failure (`LSoundPlayer::GetStatus`).
    virtual void spntfStop(long /*id*/) {}
    virtual void spntfCue(long /*id*/) {}   ///< not sent yet
    virtual void spntfPause(long /*id*/) {} ///< not sent yet
    /// The position in the source that has been heard.
    virtual void spntfTime(LSoundTime /*time*/, long /*id*/) {}
    /// The levels of the block that ends there; sent before its time.
    virtual void spntfLevel(const LDBMC& /*levels*/, long /*id*/) {}
    /// The same for a meter and a clock; sent between the two.
    virtual void spntfHeard(const LSoundHeard& /*heard*/, long /*id*/) {}
};
