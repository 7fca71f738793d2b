#pragma once

#include <cstdint>
#include <memory>

/// Hands out frames of the high-resolution engine on request, at any rate: samples of 32 bits, interleaved,
/// 2^31 being full scale; once, from the beginning on. The words for threads are those of `LSoundSourceBase`.
class HiresSource {
public:
    HiresSource(const HiresSource&) = delete;
    HiresSource& operator=(const HiresSource&) = delete;
    virtual ~HiresSource() = default;

    /// Fills all of `frames` * `channels` samples; silence lies behind the end.
    /// Thread: reader. Blocks: no. Allocates: no.
    virtual void Read(std::int32_t* out, int frames) = 0;
    /// How long it is, in frames; `Endless` where it has no end. Thread: any. Blocks: no. Allocates: no.
    virtual std::int64_t GetLength() const = 0;

    static constexpr std::int64_t Endless = INT64_MAX;

    const int rate;     ///< frames per second
    const int channels; ///< 1 or 2

protected:
    HiresSource(int framesPerSecond, int channelCount) : rate(framesPerSecond), channels(channelCount) {}
};

using HiresSourcePtr = std::unique_ptr<HiresSource>;
