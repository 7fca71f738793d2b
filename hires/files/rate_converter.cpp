#include "hires/files/rate_converter.h"

#include "sound/sound_source.h"

#include <algorithm>
#include <soxr.h>

HiresRateConverter::HiresRateConverter(int from, int to, int channelCount, Input pulled)
    : input(std::move(pulled)),
      channels(channelCount),
      block(static_cast<std::size_t>(channelCount) * MaxBlockFrames),
      resampler(nullptr, soxr_delete) {
    const soxr_io_spec_t doubles = soxr_io_spec(SOXR_FLOAT64_I, SOXR_FLOAT64_I);
    const soxr_quality_spec_t best = soxr_quality_spec(SOXR_VHQ, SOXR_HI_PREC_CLOCK);
    const soxr_runtime_spec_t oneThread = soxr_runtime_spec(1);
    resampler.reset(
        soxr_create(from, to, static_cast<unsigned int>(channels), nullptr, &doubles, &best, &oneThread));
    if (resampler)
        soxr_set_input_fn(resampler.get(), Pull, this, MaxBlockFrames);
}

std::size_t HiresRateConverter::Pull(void* converter, const void** data, std::size_t frames) {
    auto& self = *static_cast<HiresRateConverter*>(converter);
    *data = self.block.data();
    return self.input(self.block.data(), std::min<std::size_t>(frames, MaxBlockFrames));
}

std::size_t HiresRateConverter::Read(double* out, std::size_t frames) {
    return resampler ? soxr_output(resampler.get(), out, frames) : 0;
}
