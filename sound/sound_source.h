#pragma once

#include "sound/shared_handle.h"
#include "sound/sound_time.h"

#include <cstdint>
#include <utility>

/// Internal samples are signed 32-bit integers, interleaved by frame, at 16 times the 16-bit scale. 16-bit
/// full scale is thus +-524272; larger values are legal between stages and are brought down by the peak
/// limiter.
inline constexpr int FullScale16 = 32767 * 16;
/// What a source may reach that adds up to 16 components.
inline constexpr int SynthesisPeakMax = 0x200000;
/// The most frames that stages, files and jobs pass on in one go; larger requests are split.
inline constexpr int MaxBlockFrames = 8192;

/// Why a source can't be used.
enum LSoundStatus : std::uint8_t {
    SoundUsable = 0,
    SoundNothing = 1,           ///< nothing behind the handle
    SoundInputUnusable = 2,     ///< the source that this one wraps is not usable
    SoundInvalidFormat = 3,     ///< rate below 1, no channels, or a damaged file
    SoundCannotOpen = 4,        ///< the file could not be opened
    SoundUnsupportedFormat = 5, ///< a kind of file that is not read
};

/// Hands out blocks of frames on request. Reached through `LSoundSource` handles only.
///
/// A method says which thread calls it, whether it may block, which is to wait for another thread or the
/// clock (files and pipes take the time that they take), and whether it may allocate. The threads have fixed
/// names:
/// - builder: whoever assembles a chain, and has it to himself until he hands it on;
/// - reader: the one thread at a time that from then on reads the source, or writes the sink;
/// - any: each, and several at once.
///
/// Where a class allocates in a method that says no here, its own method says so.
class LSoundSourceBase {
public:
    LSoundSourceBase(const LSoundSourceBase&) = delete;
    LSoundSourceBase& operator=(const LSoundSourceBase&) = delete;
    virtual ~LSoundSourceBase() = default;

    /// Fills all of `frames` * `channels` samples; what the source does not have is silence. There is no
    /// short read.
    /// Thread: reader. Blocks: no. Allocates: no.
    virtual void Read(int* buffer, int frames) = 0;
    /// The frame that `Read` delivers next.
    /// Thread: builder, reader. Blocks: no. Allocates: no.
    virtual int GetPositionSample() const = 0;
    /// The frame at which the material ends. `Read` does not stop there.
    /// Thread: builder, reader. Blocks: no. Allocates: no.
    virtual int GetEndSample() const = 0;
    /// Goes to a frame; silence lies before the beginning and behind the end. A source without places, such
    /// as noise, stays where it is.
    /// Thread: builder, reader. Blocks: no. Allocates: yes.
    virtual void Seek(int frame);
    /// True while the data is still arriving and the end may grow.
    /// Thread: builder, reader. Blocks: no. Allocates: no.
    virtual bool IsStreaming() const;
    /// Waits for more data, at most for the time given.
    /// Thread: reader. Blocks: yes. Allocates: no.
    virtual void WaitForStreamingData(int milliseconds);
    /// Gives back what can be had again (an open file, a table) until the next `Seek`, before which it is not
    /// read. For sources that wait their turn, or have had it, among thousands.
    /// Thread: builder, reader. Blocks: no. Allocates: no.
    virtual void Unload();

    int sampleRate;        ///< frames per second, at least 1
    int peakMax;           ///< the largest magnitude that a sample can have
    std::uint8_t channels; ///< at least 1
    std::uint8_t status = SoundUsable;
    std::uint16_t refCount = 0;

protected:
    /// A rate below 1 becomes 44100 and no channels become one, both with `SoundInvalidFormat`.
    LSoundSourceBase(int rate, std::uint8_t channelCount, int peak);
};

/// Stands in for a source that could not be had: silence of length 0 at 11025 Hz, mono. Nothing in it changes
/// once it is made.
class LSoundSourceError : public LSoundSourceBase {
public:
    explicit LSoundSourceError(std::uint8_t code = SoundNothing);

    void Read(int* buffer, int frames) override;
    int GetPositionSample() const override { return 0; }
    int GetEndSample() const override { return 0; }
};

/// The handle by which every source is held.
class [[nodiscard]] LSoundSource : public LSharedHandle<LSoundSourceBase, LSoundSourceError> {
public:
    using LSharedHandle::LSharedHandle;

    /// Thread: builder. Blocks: no. Allocates: yes.
    template <class Source, class... Arguments>
    static LSoundSource Make(Arguments&&... arguments) {
        return LSoundSource(new Source(std::forward<Arguments>(arguments)...));
    }

    /// The whole length.
    /// Thread: builder, reader. Blocks: no. Allocates: no.
    LSoundTime GetEnd() const;
};

/// Writes `frames` frames of silence.
/// Thread: any. Blocks: no. Allocates: no.
void ClearAudioBuffer(int* buffer, int frames, std::uint8_t channels);
