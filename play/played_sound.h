#pragma once

#include "play/player_buffer.h"

#include <functional>
#include <optional>

/// What a playback reads. The playback's thread has it to itself until the thread has ended.
class LPlayedSound {
public:
    LPlayedSound() = default;
    LPlayedSound(const LPlayedSound&) = delete;
    LPlayedSound& operator=(const LPlayedSound&) = delete;
    virtual ~LPlayedSound() = default;

    /// Comes first. Returns what its frames are like; nothing where it can't be had, or `findRate`, which
    /// waits for the output's own rate, returns 0 for being stopped. Thread: player. Blocks: as `findRate`.
    /// Allocates: yes.
    virtual std::optional<LPlayFormat> Open(const std::function<int()>& findRate) = 0;
    /// The frames that can be read now, `most` at most. Thread: player. Blocks: no. Allocates: no.
    virtual int GetAhead(int most) const = 0;
    /// Reads the next frames into the buffer, and beside them what is told once they have been heard, but for
    /// the time since the start. Thread: player. Blocks: no. Allocates: no.
    virtual void Read(LSoundPlayerBuffer& buffer, int frames) = 0;
    /// As a source's. Thread: player. Blocks: no, yes. Allocates: no.
    virtual bool IsStreaming() const { return false; }
    virtual void WaitForStreamingData(int /*milliseconds*/) {}
    /// The position at its end. Thread: player, and then owner. Blocks: no. Allocates: no.
    virtual LSoundTime GetEnd() const = 0;
};
