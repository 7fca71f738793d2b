#pragma once

#include "jobs/sound_input.h"
#include "play/player_notify.h"
#include "sys/event_loop.h"

#include <memory>

/// Shows a playback on one line of the terminal: position, length and the level of each channel. Draws
/// nothing where standard error is no terminal, but tells of files that are lost meanwhile. Ends the event
/// loop when the playback has stopped.
class PlayDisplay : public LSoundPlayerNotify {
public:
    /// An endless sound has no length, and its position is the time since its start.
    PlayDisplay(LEventLoop& ended, const InputFacts& input, LSoundTime inputLength);

    void spntfStop(long id) override;
    void spntfTime(LSoundTime time, long id) override;
    void spntfLevel(const LDBMC& measured, long id) override;
    void spntfHeard(const LSoundHeard& heard, long id) override;

private:
    void Draw(LSoundTime position) const;
    void TellNews();

    LEventLoop& loop;
    LSoundTime length;
    bool endless;
    std::shared_ptr<LSourceNews> news;
    bool visible;
    LSoundTime sinceStart;
    LDBMC levels;
};
