#pragma once

#include "play/player_buffer.h"
#include "sys/thread_check.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>

/// What a channel does whatever its output is: hands queued buffers out as the output asks for frames, with
/// the volume applied, and sets them free as they are heard. Three threads meet here, each with its own
/// operations; they share single atomics only.
class LChannelFeed {
public:
    /// `expectedLatency` is in frames: the least that stands between a frame's being handed out and its being
    /// heard.
    LChannelFeed(const LPlayFormat& framesLike, std::shared_ptr<LSoundPlayerRing> playerRing,
                 int expectedLatency);

    /// At most 64 at a time. Thread: player. Blocks: no. Allocates: no.
    void Queue(LSoundPlayerBuffer& buffer);
    /// From the next frame on. Thread: player. Blocks: no. Allocates: no.
    void SetVolume(std::uint32_t word);
    /// Gives up what is queued: its next 5 ms fade out, and the rest is dropped. Nothing is played of a sound
    /// that has not begun yet. Thread: player. Blocks: no. Allocates: no.
    void FadeOut();

    /// Fills all of `frames` frames of the format, with silence where nothing is queued. Thread: output.
    /// Blocks: no. Allocates: no.
    void Fill(void* out, int frames);
    /// `position` counts the frames that the output has played by the `Fill` before. It may be ahead of the
    /// truth: an output that has run dry counts on, and so may one that is only being started. Thread:
    /// output. Blocks: no. Allocates: no.
    void SetPosition(std::uint64_t position);

    /// True once the fade-out has been heard to its end. Thread: any. Blocks: no. Allocates: no.
    bool IsSilent() const { return *ring->silence; }

private:
    template <class Sample>
    void FillWith(Sample* out, int frames);
    template <class Sample>
    int FillFrom(LSoundPlayerBuffer& buffer, Sample* out, int frames);
    template <class Sample>
    void ApplyFade(Sample* out, int frames);
    LSoundPlayerBuffer* GetNext();
    bool IsHeard(std::uint64_t end) const { return end + latency <= delivered; }

    LPlayFormat format;
    int fadeFrames;
    std::shared_ptr<LSoundPlayerRing> ring;

    std::array<LSoundPlayerBuffer*, LSoundPlayerRing::Buffers> queue{};
    std::atomic<unsigned int> queued = 0; ///< buffers ever queued
    std::atomic<std::uint32_t> volume;
    std::atomic<bool> fading = false;

    // The output's thread only.
    unsigned int taken = 0; ///< buffers that have been handed out in full
    unsigned int heard = 0; ///< buffers that have been set free
    int offset = 0;         ///< frames of the next buffer that are handed out
    int fadeLeft;           ///< frames of the fade-out to come
    bool begun = false;
    std::uint64_t delivered = 0; ///< frames handed out, silence included
    std::uint64_t soundEnd = 0;  ///< `delivered` after the last frame that was not filled up
    std::uint64_t latency;       ///< the most frames that have been on their way
    std::array<std::uint64_t, LSoundPlayerRing::Buffers> ends{}; ///< of each taken buffer, in `delivered`

    LThreadCheck player, output;
};
