#pragma once

#include "hires/file_kind.h"
#include "jobs/hires_input.h"
#include "jobs/rendered_format.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

/// Hands out a sound as it is stored in a file or heard, once, from the beginning on: doubles, interleaved by
/// frame, full scale being 1.
class FrameReader {
public:
    struct Format {
        int rate;     ///< frames per second
        int channels; ///< any number
        int bits;     ///< of the samples; 0 for floating point
    };

    FrameReader(const Format& readFormat, std::int64_t frames) : format(readFormat), length(frames) {}
    FrameReader(const FrameReader&) = delete;
    FrameReader& operator=(const FrameReader&) = delete;
    virtual ~FrameReader() = default;

    /// Fills whole frames, as many as there is room for, and answers how many they are: fewer at the end
    /// only, then 0. Thread: one at a time. Blocks: for files and pipes.
    virtual std::size_t Read(std::span<double> out) = 0;
    /// The most that the limiter has taken off what was read, in dB; nothing where there is none, or what it
    /// did can't be known.
    virtual std::optional<double> GetLimiterDb() const { return {}; }

    const Format format;
    const std::int64_t length; ///< in frames; `Endless` where it has no end

    static constexpr std::int64_t Endless = HiresSource::Endless;
    static constexpr std::int64_t Unknown = -1; ///< the length of what comes by a pipe
};

/// A sound that was opened to be read, or why it can't be.
struct FrameInput {
    std::unique_ptr<FrameReader> reader; ///< null with a failure
    LFailure failure{};
    std::shared_ptr<LSourceNews> news = std::make_shared<LSourceNews>(); ///< what happens while it is read
};

/// What is rendered of an input in the standard quality.
FrameInput ReadRendered(const SoundInput& input, const RenderedFormatRequest& request);

/// What is rendered of an input in high quality, rounded as it is for a file.
struct HiresRounding {
    HiresSamples samples = HiresSamples::Int24;
    bool dither = true;     ///< with 16 bits
    std::uint64_t seed = 1; ///< of the dither
};
FrameInput ReadRenderedHires(HiresInput&& input, const HiresRounding& rounding);

/// What is in a sound file of any kind, to the bit, or in the one that comes by standard input, "-": at its
/// own rate, with all of its channels, and beyond full scale where it is.
FrameInput ReadFileFrames(const std::string& path);
