#include "play/hires_sound.h"

#include "hires/settings.h"
#include "play/sound_channel.h"

#include <algorithm>

namespace {

constexpr float Unit = 0x1p-31F;
constexpr int InternalShift = 12; // from 2^31 to 16 times the 16-bit scale

} // namespace

std::optional<LPlayFormat> LHiresSound::Open(const std::function<int()>& findRate) {
    if (const int rate = findRate())
        source = open(std::clamp(rate, HiresSettings::LowestRate, LSoundChannel::HighestRate));
    if (!source)
        return std::nullopt;
    format = {.rate = source->rate,
              .channels = static_cast<std::uint8_t>(source->channels),
              .sample = LPlayFormat::Sample::Float};
    work.resize(static_cast<std::size_t>(format.GetBlockFrames()) * format.channels);
    return format;
}

int LHiresSound::GetAhead(int most) const {
    return static_cast<int>(std::min<std::int64_t>(source->GetLength() - position, most));
}

void LHiresSound::Read(LSoundPlayerBuffer& buffer, int frames) {
    source->Read(work.data(), frames);
    float* out = buffer.GetSamples<float>();
    for (int i = 0; i < frames * format.channels; ++i) {
        std::int32_t& sample = work[static_cast<std::size_t>(i)];
        out[i] = static_cast<float>(sample) * Unit;
        sample >>= InternalShift;
    }
    buffer.Measure(work.data(), frames, format.channels);
    position += frames;
    buffer.endTime = format.GetTime(position);
}
