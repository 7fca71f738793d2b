// Any bytes as a tone in high resolution: play a hundredth of a second of it, and its end where that is near.
// The first eight bytes choose the rate, level, fades and seed; the rest is the record.

#include "hires/tone_source.h"

#include <algorithm>
#include <cstring>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 8)
        return 0;
    HiresSettings settings{
        .rate = HiresSettings::LowestRate, .level = data[3] / -2.0, .fit = data[4] % 2 == 0};
    settings.rate += (data[0] << 16 | data[1] << 8 | data[2]) %
                     (HiresSettings::HighestRate - HiresSettings::LowestRate + 1);
    settings.fadeInMs = data[5] / 8.0;
    settings.fadeOutMs = data[6] / 8.0;
    settings.seed = data[7];
    SonvireData tone;
    std::memcpy(static_cast<SonvireFile*>(&tone), data + 8,
                std::min<std::size_t>(size - 8, SonvireFile::FileBytes));
    const HiresTone opened = OpenHiresTone(tone, settings);
    if (!opened.source)
        return 0;
    const auto frames =
        static_cast<int>(std::min<std::int64_t>(opened.source->GetLength(), settings.rate / 100) + 10);
    std::vector<std::int32_t> block(static_cast<std::size_t>(frames * opened.source->channels));
    opened.source->Read(block.data(), frames);
    return 0;
}
