#include "jobs/frame_reader.h"

#include "hires/packer.h"
#include "hires/sample_bits.h"
#include "sound/fixed_point.h"
#include "sound/sample_format.h"

#include <algorithm>
#include <vector>

namespace {

/// What has a known length, or none, read block by block.
class BlockReader : public FrameReader {
public:
    BlockReader(const Format& readFormat, std::int64_t frames)
        : FrameReader(readFormat, frames),
          left(frames) {}

    std::size_t Read(std::span<double> out) override {
        const auto channels = static_cast<std::size_t>(format.channels);
        const auto frames =
            static_cast<std::size_t>(std::min(left, static_cast<std::int64_t>(out.size() / channels)));
        for (std::size_t done = 0; done < frames; done += MaxBlockFrames)
            ReadBlock(out.data() + done * channels,
                      static_cast<int>(std::min<std::size_t>(frames - done, MaxBlockFrames)));
        if (left != Endless)
            left -= static_cast<std::int64_t>(frames);
        return frames;
    }

protected:
    /// So many frames, `MaxBlockFrames` at most.
    virtual void ReadBlock(double* out, int frames) = 0;

    std::size_t GetBlockSamples() const { return static_cast<std::size_t>(format.channels) * MaxBlockFrames; }

private:
    std::int64_t left;
};

class StandardReader : public BlockReader {
public:
    StandardReader(const LSoundSource& opened, const std::shared_ptr<LLimiterNews>& limiterNews,
                   const Format& readFormat, std::int64_t frames)
        : BlockReader(readFormat, frames),
          source(opened),
          limiter(limiterNews),
          block(GetBlockSamples()) {}

    std::optional<double> GetLimiterDb() const override { return LLimiterNews::ToDecibels(leastGain); }

protected:
    void ReadBlock(double* out, int frames) override {
        source->Read(block.data(), frames);
        leastGain = std::min(leastGain, limiter->TakeLeastGain());
        const int count = frames * format.channels;
        if (format.bits == 8)
            std::transform(block.data(), block.data() + count, out,
                           [](int sample) { return (LSFU8::Out(sample) - 128) * 0x1p-7; });
        else
            std::transform(block.data(), block.data() + count, out,
                           [](int sample) { return LSF16::Out(sample) * 0x1p-15; });
    }

private:
    LSoundSource source;
    std::shared_ptr<LLimiterNews> limiter;
    std::vector<int> block;
    int leastGain = UnityGain;
};

class HighReader : public BlockReader {
public:
    HighReader(HiresSourcePtr opened, const HiresFileFormat& stored)
        : BlockReader({stored.rate, stored.channels,
                       stored.samples == HiresSamples::Float ? 0 : GetBits(stored.samples)},
                      stored.frames),
          source(std::move(opened)),
          packer(stored),
          block(GetBlockSamples()) {}

    /// There is none: what is too loud is refused.
    std::optional<double> GetLimiterDb() const override { return 0; }

protected:
    void ReadBlock(double* out, int frames) override {
        source->Read(block.data(), frames);
        const int count = frames * format.channels;
        packer.Round(block.data(), count, block.data());
        if (format.bits == 0)
            std::transform(block.data(), block.data() + count, out,
                           [](std::int32_t sample) { return double{static_cast<float>(sample) * 0x1p-31F}; });
        else
            std::transform(block.data(), block.data() + count, out,
                           [](std::int32_t sample) { return sample * 0x1p-31; });
    }

private:
    HiresSourcePtr source;
    HiresPacker packer;
    std::vector<std::int32_t> block;
};

} // namespace

FrameInput ReadRendered(const SoundInput& input, const RenderedFormatRequest& request) {
    if (input.failure)
        return {.reader = nullptr, .failure = input.failure};
    const RenderedFormat format(request, input.source);
    if (LFailure refused = input.endless ? LFailure() : format.Check(input))
        return {.reader = nullptr, .failure = std::move(refused)};
    const auto news = std::make_shared<LLimiterNews>();
    const LSoundSource source = format.Open(input.source, news);
    const std::int64_t frames =
        input.endless ? FrameReader::Endless
                      : std::max(0, WrapSubtract(source->GetEndSample(), source->GetPositionSample()));
    return {.reader = std::make_unique<StandardReader>(
                source, news, FrameReader::Format{format.rate, format.channels, format.bits}, frames),
            .news = input.news};
}

FrameInput ReadRenderedHires(HiresInput&& input, const HiresRounding& rounding) {
    if (input.failure)
        return {.reader = nullptr, .failure = std::move(input.failure)};
    const HiresFileFormat stored{.rate = input.source->rate,
                                 .channels = input.source->channels,
                                 .samples = rounding.samples,
                                 .frames = input.source->GetLength(),
                                 .dither = rounding.dither,
                                 .seed = rounding.seed};
    return {.reader = std::make_unique<HighReader>(std::move(input.source), stored), .news = input.news};
}
