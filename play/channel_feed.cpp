#include "play/channel_feed.h"

#include "play/sound_channel.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr int FadesPerSecond = 200; // 5 ms each

/// Rounded; 256 leaves the sample as it is.
std::int16_t ApplyVolume(std::int16_t sample, int level) {
    return static_cast<std::int16_t>((sample * level + 128) >> 8);
}

float ApplyVolume(float sample, int level) {
    return sample * (static_cast<float>(level) / 256);
}

std::int16_t TakePart(std::int16_t sample, int part, int whole) {
    return static_cast<std::int16_t>(sample * part / whole);
}

float TakePart(float sample, int part, int whole) {
    return sample * (static_cast<float>(part) / static_cast<float>(whole));
}

} // namespace

LChannelFeed::LChannelFeed(const LPlayFormat& framesLike, std::shared_ptr<LSoundPlayerRing> playerRing,
                           int expectedLatency)
    : format(framesLike),
      fadeFrames(std::max(1, format.rate / FadesPerSecond)),
      ring(std::move(playerRing)),
      volume(LSoundChannel::UnityVolume),
      fadeLeft(fadeFrames),
      latency(static_cast<std::uint64_t>(expectedLatency)) {}

void LChannelFeed::Queue(LSoundPlayerBuffer& buffer) {
    player.Check();
    const unsigned int at = queued.load(std::memory_order_relaxed);
    queue[at % queue.size()] = &buffer;
    queued.store(at + 1, std::memory_order_release);
}

void LChannelFeed::SetVolume(std::uint32_t word) {
    player.Check();
    volume = word;
}

void LChannelFeed::FadeOut() {
    player.Check();
    fading = true;
}

void LChannelFeed::Fill(void* out, int frames) {
    output.Check();
    if (format.sample == LPlayFormat::Sample::Float)
        FillWith(static_cast<float*>(out), frames);
    else
        FillWith(static_cast<std::int16_t*>(out), frames);
}

template <class Sample>
void LChannelFeed::FillWith(Sample* out, int frames) {
    const bool giveUp = fading;
    if (giveUp && !begun)
        fadeLeft = 0;
    while (frames > 0) {
        LSoundPlayerBuffer* buffer = GetNext();
        const int wanted = giveUp ? std::min(frames, fadeLeft) : frames;
        if (!buffer || wanted == 0)
            break;
        const int count = FillFrom(*buffer, out, wanted);
        if (giveUp)
            ApplyFade(out, count);
        out += std::ptrdiff_t{count} * format.channels;
        frames -= count;
        soundEnd = delivered;
    }
    if (giveUp && frames > 0)
        fadeLeft = 0; // what would come now was queued too late
    std::fill_n(out, std::ptrdiff_t{frames} * format.channels, Sample{0});
    delivered += static_cast<std::uint64_t>(frames);
}

LSoundPlayerBuffer* LChannelFeed::GetNext() {
    if (taken == queued.load(std::memory_order_acquire))
        return nullptr;
    return queue[taken % queue.size()];
}

template <class Sample>
int LChannelFeed::FillFrom(LSoundPlayerBuffer& buffer, Sample* out, int frames) {
    const int count = std::min(frames, buffer.frames - offset);
    const Sample* in = buffer.GetSamples<Sample>() + std::ptrdiff_t{offset} * format.channels;
    const std::uint32_t word = volume;
    const int levels[] = {static_cast<int>(word & 0xFFFF), static_cast<int>(word >> 16)};
    for (int frame = 0; frame < count; ++frame)
        for (int channel = 0; channel < format.channels; ++channel)
            *out++ = ApplyVolume(*in++, levels[channel & 1]);
    begun = true;
    delivered += static_cast<std::uint64_t>(count);
    offset += count;
    if (offset == buffer.frames) {
        ends[taken % ends.size()] = delivered;
        ++taken;
        offset = 0;
    }
    return count;
}

template <class Sample>
void LChannelFeed::ApplyFade(Sample* out, int frames) {
    for (int frame = 0; frame < frames; ++frame) {
        --fadeLeft;
        for (int channel = 0; channel < format.channels; ++channel, ++out)
            *out = TakePart(*out, fadeLeft, fadeFrames);
    }
}

// What an output has asked for since tells what it has played: it asks as it plays. Its position tells only
// how much is on its way, since after running dry it would have a fade heard that has not been played yet.
void LChannelFeed::SetPosition(std::uint64_t position) {
    output.Check();
    if (position < delivered)
        latency = std::max(latency, delivered - position);
    const unsigned int before = heard;
    for (; heard != taken && IsHeard(ends[heard % ends.size()]); ++heard)
        queue[heard % queue.size()]->free = true;
    if (heard != before)
        ring->done.Signal();
    if (fading && fadeLeft == 0 && IsHeard(soundEnd))
        *ring->silence = true;
}
