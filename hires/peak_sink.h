#pragma once

#include "hires/hires_sink.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

/// Passes on what it is given, and looks for the largest magnitude.
class HiresPeakSink : public HiresSink {
public:
    /// `enough` is a magnitude behind which there is no more looking.
    HiresPeakSink(HiresSink& target, int channelCount,
                  std::int64_t enoughPeak = std::numeric_limits<std::int64_t>::max())
        : sink(target),
          channels(channelCount),
          enough(enoughPeak) {}

    LFailure Write(const std::int32_t* samples, int frames) override {
        for (int i = 0; i < frames * channels && peak < enough; ++i)
            peak = std::max(peak, std::abs(std::int64_t{samples[i]}));
        return sink.Write(samples, frames);
    }
    LFailure Finish() override { return sink.Finish(); }
    std::int64_t GetPeak() const { return peak; } ///< 2^31 is full scale

private:
    HiresSink& sink;
    int channels;
    std::int64_t enough, peak = 0;
};
