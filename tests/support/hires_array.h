#pragma once

#include "hires/hires_source.h"

#include <vector>

/// Samples that a test made up, then silence.
class HiresArray : public HiresSource {
public:
    HiresArray(std::vector<int> data, int framesPerSecond, int channelCount)
        : HiresSource(framesPerSecond, channelCount),
          samples(std::move(data)) {}

    void Read(std::int32_t* out, int frames) override {
        for (int i = 0; i < frames * channels; ++i, ++next)
            out[i] = next < samples.size() ? samples[next] : 0;
    }
    std::int64_t GetLength() const override { return std::ssize(samples) / channels; }

private:
    std::vector<int> samples;
    std::size_t next = 0;
};
