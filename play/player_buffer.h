#pragma once

#include "play/sound_heard.h"
#include "sys/signal_object.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

class LSoundChannel;

/// One block of 16-bit frames on its way to the output. While it is queued it belongs to the channel, which
/// sets `free`; the rest is the player thread's.
struct LSoundPlayerBuffer {
    static constexpr int NoEndPosition = 0x7FFFFFFF;

    /// Queues the first `frameCount` frames; `sourceEnd` is the position, in what is to be played, just
    /// after the last of them.
    void Write(LSoundChannel& channel, int frameCount, int sourceEnd);

    std::int16_t* samples = nullptr; ///< interleaved; within the ring's pool
    int frames = 0;
    std::atomic<bool> free = true; ///< set once the last frame has been heard
    int endPosition = NoEndPosition;
    LDBMC levels;
    LSoundHeard heard;
};

/// All the buffers of one playback. Shared by the player and its channel, and so there until both are done
/// with it.
struct LSoundPlayerRing {
    static constexpr int Buffers = 64;

    LSoundPlayerRing(int framesPerBuffer, std::uint8_t channels)
        : pool(std::make_unique_for_overwrite<std::int16_t[]>(
              std::size_t{Buffers} * static_cast<std::size_t>(framesPerBuffer) * channels)) {
        std::int16_t* next = pool.get();
        for (LSoundPlayerBuffer& buffer : buffers) {
            buffer.samples = next;
            next += std::ptrdiff_t{framesPerBuffer} * channels;
        }
    }

    using Silence = std::shared_ptr<std::atomic<bool>>;

    LSignalObject done; ///< set when a buffer has become free, or the channel's state has changed
    std::unique_ptr<std::int16_t[]> pool; ///< not filled in: clearing it would cost a start a millisecond
    std::array<LSoundPlayerBuffer, Buffers> buffers;
    /// Set once nothing of the playback is to be heard any more, if only after its channel is gone.
    const Silence silence = std::make_shared<std::atomic<bool>>(false);
};
