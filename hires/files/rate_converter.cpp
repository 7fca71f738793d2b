#include "hires/files/rate_converter.h"

#include "hires/files/soxr_library.h"
#include "sound/sound_source.h"

#include <algorithm>

HiresRateConverter::HiresRateConverter(int from, int to, int channelCount, Input pulled)
    : input(std::move(pulled)),
      channels(channelCount),
      block(static_cast<std::size_t>(channelCount) * MaxBlockFrames),
      resampler(nullptr, Soxr().destroy) {
    if (!Soxr().IsThere())
        return;
    const soxr_io_spec_t doubles = Soxr().io_spec(SOXR_FLOAT64_I, SOXR_FLOAT64_I);
    const soxr_quality_spec_t best = Soxr().quality_spec(SOXR_VHQ, SOXR_HI_PREC_CLOCK);
    const soxr_runtime_spec_t oneThread = Soxr().runtime_spec(1);
    resampler.reset(
        Soxr().create(from, to, static_cast<unsigned int>(channels), nullptr, &doubles, &best, &oneThread));
    if (resampler)
        Soxr().set_input_fn(resampler.get(), Pull, this, MaxBlockFrames);
}

std::size_t HiresRateConverter::Pull(void* converter, const void** data, std::size_t frames) {
    auto& self = *static_cast<HiresRateConverter*>(converter);
    *data = self.block.data();
    return self.input(self.block.data(), std::min<std::size_t>(frames, MaxBlockFrames));
}

std::size_t HiresRateConverter::Read(double* out, std::size_t frames) {
    return resampler ? Soxr().output(resampler.get(), out, frames) : 0;
}
