#pragma once

#include "sound/sound_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

/// Samples that a test made up, then silence. Plays as a streaming source where `streaming` is set.
class ArraySource : public LSoundSourceBase {
public:
    ArraySource(std::vector<int> data, int rate, std::uint8_t channelCount = 1, int peak = FullScale16)
        : LSoundSourceBase(rate, channelCount, peak),
          samples(std::move(data)) {}

    void Read(int* buffer, int frames) override {
        longestRead = std::max(longestRead, frames);
        for (int i = 0; i < frames * channels; ++i) {
            const long at = static_cast<long>(position) * channels + i;
            buffer[i] =
                at >= 0 && at < static_cast<long>(samples.size()) ? samples[static_cast<std::size_t>(at)] : 0;
        }
        position += frames;
    }
    int GetPositionSample() const override { return position; }
    int GetEndSample() const override { return static_cast<int>(samples.size()) / channels; }
    void Seek(int frame) override { position = frame; }
    bool IsStreaming() const override { return streaming; }
    void WaitForStreamingData(int milliseconds) override { waited += milliseconds; }
    void Unload() override { ++unloads; }

    std::vector<int> samples;
    int position = 0;
    int longestRead = 0;
    int waited = 0; ///< in milliseconds, all of them together
    int unloads = 0;
    bool streaming = false;
};

/// 16-bit samples, none of them 0, that tell where they belong.
inline std::vector<int> Numbered(int count, int first = 1) {
    std::vector<int> samples(static_cast<std::size_t>(count));
    for (int& sample : samples)
        sample = first++ % 32749 + 1;
    return samples;
}

/// A source of these samples.
inline LSoundSource ArrayOf(std::vector<int> samples, int rate = 44100, std::uint8_t channels = 1,
                            int peak = FullScale16) {
    return LSoundSource::Make<ArraySource>(std::move(samples), rate, channels, peak);
}

/// The source that `ArrayOf` has made.
inline ArraySource& Array(const LSoundSource& source) {
    return static_cast<ArraySource&>(*source);
}

/// A source of 16-bit samples.
inline LSoundSource SourceOf(std::vector<int> samples, int rate, std::uint8_t channels = 1) {
    for (int& sample : samples)
        sample *= 16;
    return ArrayOf(std::move(samples), rate, channels);
}

inline std::vector<int> ReadFrames(LSoundSourceBase& source, int frames) {
    std::vector<int> buffer(static_cast<std::size_t>(frames) * source.channels, 0x5EED);
    source.Read(buffer.data(), frames);
    return buffer;
}

/// The same frames by calls of odd sizes, which must make no difference.
inline std::vector<int> ReadInPieces(LSoundSourceBase& source, int frames) {
    std::vector<int> all;
    for (int done = 0, size = 1; done < frames; done += size, size = size * 3 % 4001 + 1) {
        size = std::min(size, frames - done);
        const std::vector<int> piece = ReadFrames(source, size);
        all.insert(all.end(), piece.begin(), piece.end());
    }
    return all;
}

/// Expects these samples of a mono source, and silence behind them, wherever it is sought.
inline void ExpectSeeks(LSoundSourceBase& source, std::vector<int> all, const std::vector<int>& targets) {
    all.resize(all.size() + 5);
    for (const int target : targets) {
        source.Seek(target);
        EXPECT_EQ(source.GetPositionSample(), target);
        const auto expected = all.begin() + target;
        EXPECT_EQ(ReadFrames(source, 3), std::vector<int>(expected, expected + 3)) << target;
    }
}
