#pragma once

#include "sound/shared_handle.h"
#include "sound/sound_source.h"
#include "sys/failure.h"

#include <algorithm>
#include <cstdint>
#include <utility>

/// Bits of a sink's status; 0 means usable.
enum LSoundSinkStatus : std::uint8_t {
    SinkUnusable = 1,  ///< no channels, nothing behind the handle, or the file could not be created
    SinkFellShort = 2, ///< something that was written did not arrive, as on a full disk
};

/// Takes blocks of frames (internal samples, interleaved). Reached through `LSoundSink` handles only;
/// releasing the last one finishes what was written. The words for threads are those of `LSoundSourceBase`.
class LSoundSinkBase {
public:
    LSoundSinkBase(const LSoundSinkBase&) = delete;
    LSoundSinkBase& operator=(const LSoundSinkBase&) = delete;
    virtual ~LSoundSinkBase() = default;

    /// Appends frames.
    /// Thread: reader. Blocks: no. Allocates: no.
    virtual void Write(const int* buffer, int frames) = 0;
    /// Cuts what was written to `frame` frames, where the sink can do that.
    /// Thread: reader. Blocks: no. Allocates: no.
    virtual void Seek(int /*frame*/) {}
    /// Completes what was written; nothing is written after it. The last handle's release does the same, but
    /// then nobody can look at the status any more.
    /// Thread: reader. Blocks: no. Allocates: no.
    virtual void Finish() {}

    int lengthHint = 0;          ///< expected total length in frames
    int sampleRate;              ///< frames per second, not checked
    int peakLimit = FullScale16; ///< the largest magnitude that what it writes can hold
    std::uint8_t channels;
    std::uint8_t status;
    std::uint16_t refCount = 0;
    LFailure failure; ///< what is behind the status, where the system has said it

protected:
    /// No channels become one, with `SinkUnusable`.
    LSoundSinkBase(int rate, std::uint8_t channelCount)
        : sampleRate(rate),
          channels(std::max<std::uint8_t>(channelCount, 1)),
          status(channelCount == 0 ? SinkUnusable : 0) {}
};

/// Stands in for a sink that could not be had, and swallows what it is given.
class LSoundSinkError : public LSoundSinkBase {
public:
    LSoundSinkError() : LSoundSinkBase(44100, 1) { status = SinkUnusable; }
    void Write(const int* /*buffer*/, int /*frames*/) override {}
};

/// The handle by which every sink is held.
class [[nodiscard]] LSoundSink : public LSharedHandle<LSoundSinkBase, LSoundSinkError> {
public:
    using LSharedHandle::LSharedHandle;

    /// Thread: builder. Blocks: no. Allocates: yes.
    template <class Sink, class... Arguments>
    static LSoundSink Make(Arguments&&... arguments) {
        return LSoundSink(new Sink(std::forward<Arguments>(arguments)...));
    }
};
