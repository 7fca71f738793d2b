#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

struct soxr;

/// Brings frames from one rate to another by soxr, at its very high quality: 28 bits, linear in phase, with
/// what comes in and what goes out in step.
class HiresRateConverter {
public:
    /// Fills a block with frames and answers how many, 0 at the end.
    using Input = std::function<std::size_t(double* out, std::size_t frames)>;

    HiresRateConverter(int from, int to, int channelCount, Input pulled);
    HiresRateConverter(const HiresRateConverter&) = delete;
    HiresRateConverter& operator=(const HiresRateConverter&) = delete;

    /// Answers how many frames it has filled, fewer than were asked for at the end only.
    std::size_t Read(double* out, std::size_t frames);

private:
    static std::size_t Pull(void* converter, const void** data, std::size_t frames);

    Input input;
    int channels;
    std::vector<double> block;
    std::unique_ptr<soxr, void (*)(soxr*)> resampler;
};
