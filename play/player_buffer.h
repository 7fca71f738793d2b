#pragma once

#include "play/play_format.h"
#include "play/sound_heard.h"
#include "sys/signal_object.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

/// One block of frames on its way to the output. While it is queued it belongs to the channel, which
/// sets `free`; the rest is the player thread's.
struct LSoundPlayerBuffer {
    /// Notes levels and peaks; the frames are in internal samples.
    void Measure(const int* internal, int frameCount, std::uint8_t channels);

    /// Interleaved, in the format of the ring, which says what `Sample` is.
    template <class Sample>
    Sample* GetSamples() {
        return reinterpret_cast<Sample*>(samples);
    }

    std::byte* samples = nullptr; ///< within the ring's pool
    int frames = 0;
    std::atomic<bool> free = true; ///< set once the last frame has been heard
    LSoundTime endTime;            ///< the position, in what is played, just after the last frame
    LDBMC levels;
    LSoundHeard heard;
};

/// All the buffers of one playback. Shared by the player and its channel, and so there until both are done
/// with it.
struct LSoundPlayerRing {
    static constexpr int Buffers = 64;

    /// Room for a block of this format in each, before which none is used.
    void MakeRoom(const LPlayFormat& format) {
        const std::size_t bytes = static_cast<std::size_t>(format.GetBlockFrames()) * format.GetFrameBytes();
        pool = std::make_unique_for_overwrite<std::byte[]>(Buffers * bytes);
        for (std::size_t i = 0; i < Buffers; ++i)
            buffers[i].samples = pool.get() + i * bytes;
    }

    using Silence = std::shared_ptr<std::atomic<bool>>;

    LSignalObject done; ///< set when a buffer has become free, or the channel's state has changed
    std::unique_ptr<std::byte[]> pool; ///< not filled in: clearing it would cost a start a millisecond
    std::array<LSoundPlayerBuffer, Buffers> buffers;
    /// Set once nothing of the playback is to be heard any more, if only after its channel is gone.
    const Silence silence = std::make_shared<std::atomic<bool>>(false);
};
