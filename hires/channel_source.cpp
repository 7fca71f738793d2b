#include "hires/channel_source.h"

#include "hires/block.h"

#include <algorithm>

HiresSourcePtr HiresChannels::Open(HiresSourcePtr source, int channelCount) {
    if (!source || source->channels == channelCount)
        return source;
    return std::make_unique<HiresChannels>(std::move(source), channelCount);
}

HiresChannels::HiresChannels(HiresSourcePtr source, int channelCount)
    : HiresSource(source->rate, channelCount),
      from(std::move(source)),
      block(std::size_t{2} * HiresBlockFrames) {}

void HiresChannels::Read(std::int32_t* out, int frames) {
    while (frames > 0) {
        const int now = std::min(frames, HiresBlockFrames);
        from->Read(block.data(), now);
        for (int i = 0; i < now; ++i) {
            const auto at = static_cast<std::size_t>(i);
            if (channels == 2)
                out[2 * i] = out[2 * i + 1] = block[at];
            else
                out[i] = static_cast<std::int32_t>((std::int64_t{block[2 * at]} + block[2 * at + 1]) >> 1);
        }
        out += std::ptrdiff_t{now} * channels;
        frames -= now;
    }
}
