#pragma once

#include "play/play_device.h"
#include "play/player_buffer.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

enum class LSoundChannelState {
    Opening,
    Open,
    NoOutput, ///< there is no sound server or card, or it refuses the format
    NoDevice, ///< the device that was asked for is not there
    TooSlow,  ///< it doesn't take the rate, which is below the lowest that all take
    Lost,     ///< the device or the server went away
};

struct LSoundChannelRequest {
    LPlayFormat format;
    LSoundPlayDevice device;
    std::string title; ///< what the desktop's volume mixer shows beside the program's name
    std::shared_ptr<LSoundPlayerRing> ring;
    LSoundPlayerRing::Silence
        after; ///< the playback that this one follows, which fades out first; may be null
};

/// A way to one output device, for the frames of one playback. Sets a buffer free and signals the ring's
/// `done` from a thread of its own. It stays with the device that it was opened on.
class LSoundChannel {
public:
    /// Volume word: the right level in the high 16 bits, the left in the low 16 bits, 0..256.
    static constexpr std::uint32_t UnityVolume = 0x01000100;
    /// The rates that an output may be asked for, in frames per second.
    static constexpr int LowestRate = 1000, HighestRate = 192000;
    static constexpr int LowestCommonRate = 4000; ///< from here on every output takes them

    LSoundChannel() = default;
    /// What the output has not taken yet fades out over 5 ms and is silent from then on. Thread: player.
    /// Blocks: no. Allocates: yes.
    virtual ~LSoundChannel() = default;
    LSoundChannel(const LSoundChannel&) = delete;
    LSoundChannel& operator=(const LSoundChannel&) = delete;

    /// Buffers are heard in the order in which they are queued, at most 64 at a time; also before the channel
    /// is open. Thread: player. Blocks: no. Allocates: no.
    virtual void Queue(LSoundPlayerBuffer& buffer) = 0;
    /// From the next frame that the output takes. Unity until it is set. Thread: player. Blocks: no.
    /// Allocates: no.
    virtual void SetVolume(std::uint32_t word) = 0;
    /// Thread: player. Blocks: no. Allocates: no.
    virtual LSoundChannelState GetState() const = 0;
};

/// Starts to open a channel and returns at once; what becomes of it is the channel's state. Thread: player.
/// Blocks: no. Allocates: yes.
using LSoundChannelOpener = std::function<std::unique_ptr<LSoundChannel>(const LSoundChannelRequest&)>;
