#include "sound/stages/concatenation.h"

#include "sound/stages/convert_rate.h"

#include <algorithm>

namespace {

constexpr int RateOfSilences = 8000;

bool IsPlayable(const LSoundSource& source) {
    return source->status == SoundUsable;
}

bool Streams(const LSoundSource& source) {
    return IsPlayable(source) && source->IsStreaming();
}

int FramesLeft(const LSoundSource& source) {
    return WrapSubtract(source->GetEndSample(), source->GetPositionSample());
}

} // namespace

void LSoundSourceCat::AddSource(const LSoundSource& source) {
    items.push_back({source, LSoundTime()});
}

void LSoundSourceCat::AddSilence(LSoundTime time) {
    items.push_back({LSoundSource(), time});
}

LSoundSource LSoundSourceCat::OpenSource(int rate, std::uint8_t channels) const {
    int peak = FullScale16;
    for (const Item& item : items)
        if (IsPlayable(item.source))
            peak = std::max(peak,
                            LRateConversion(item.source->sampleRate, rate).ConvertPeak(item.source->peakMax));
    return LSoundSource::Make<LSSRCCat>(*this, rate, channels, peak);
}

LSoundSource LSoundSourceCat::OpenSource() const {
    int rate = 0;
    std::uint8_t channels = 1;
    for (const Item& item : items) {
        if (!IsPlayable(item.source))
            continue;
        rate = std::max(rate, item.source->sampleRate);
        channels = std::max(channels, item.source->channels);
    }
    return OpenSource(rate > 0 ? rate : RateOfSilences, channels);
}

LSSRCCat::LSSRCCat(const LSoundSourceCat& list, int rate, std::uint8_t channelCount, int peak)
    : LSoundSourceBase(rate, channelCount, peak),
      items(list.GetItems()) {
    CountRest();
    Open(true);
}

/// Goes on to the item at the cursor, at its start unless it is sought elsewhere right away.
void LSSRCCat::Open(bool fromStart) {
    current->Unload();
    current.Close();
    silenceLeft = 0;
    if (IsAllOpened())
        return;
    const LSoundSourceCat::Item& item = items[cursor];
    const bool isCounted = !std::ranges::binary_search(streaming, cursor);
    if (isCounted)
        rest = WrapSubtract(rest, CountFrames(item));
    ++cursor;
    if (!IsPlayable(item.source)) {
        silenceLeft = item.silence.GetSamples(sampleRate);
        return;
    }
    current = item.source;
    if (fromStart)
        current->Seek(0);
    LSPConvertSourceRateChannels(sampleRate, channels, current);
    if (current->channels != channels) { // a layout that nothing converts
        silenceLeft = FramesLeft(current);
        current.Close();
    }
}

void LSSRCCat::Read(int* buffer, int frames) {
    if (position < 0) {
        const int silent = static_cast<int>(std::min<std::int64_t>(frames, -std::int64_t{position}));
        ClearAudioBuffer(buffer, silent, channels);
        position += silent;
        buffer += std::ptrdiff_t{silent} * channels;
        frames -= silent;
        if (frames <= 0)
            return;
    }
    for (;;) {
        const int done = ReadCurrent(buffer, frames);
        position = WrapAdd(position, done);
        buffer += std::ptrdiff_t{done} * channels;
        frames -= done;
        if (frames <= 0)
            return;
        if (IsAllOpened()) {
            ClearAudioBuffer(buffer, frames, channels);
            return;
        }
        Open(true);
    }
}

/// Returns how many frames of the current item there were. The item fills the whole request all the same:
/// what lies past its end is overwritten by what follows.
int LSSRCCat::ReadCurrent(int* buffer, int frames) {
    if (IsPlayable(current)) {
        const int count = std::clamp(FramesLeft(current), 0, frames);
        current->Read(buffer, frames);
        return count;
    }
    const int count = std::clamp(silenceLeft, 0, frames);
    ClearAudioBuffer(buffer, count, channels);
    silenceLeft -= count;
    return count;
}

void LSSRCCat::Seek(int target) {
    position = 0;
    cursor = 0;
    CountRest();
    while (!IsAllOpened()) {
        const std::int64_t rest = std::int64_t{target} - position;
        // An item is sought once: to its start, to be measured there, or where that is behind the target, to
        // the target at once. Both would take lists that are nested in each other twice as long with every
        // level.
        const bool reachesIntoItem = rest > 0;
        Open(reachesIntoItem);
        if (!reachesIntoItem)
            current->Seek(WrapToInt(rest));
        const int length = IsPlayable(current) ? current->GetEndSample() : silenceLeft;
        if (length < rest) {
            position = WrapAdd(position, length);
            continue;
        }
        if (reachesIntoItem)
            current->Seek(WrapToInt(rest));
        position = target;
        silenceLeft = WrapToInt(silenceLeft - rest);
        return;
    }
    current->Unload();
    current.Close();
    position = target;
    silenceLeft = sampleRate; // Kept quirk: only a list without items plays this second
}

int LSSRCCat::GetEndSample() const {
    int end = WrapAdd(position, IsPlayable(current) ? FramesLeft(current) : silenceLeft);
    ForEachStreamToCome([&](const LSoundSourceCat::Item& item) { end = WrapAdd(end, CountFrames(item)); });
    return WrapAdd(end, rest);
}

bool LSSRCCat::IsStreaming() const {
    bool streams = Streams(current);
    ForEachStreamToCome(
        [&](const LSoundSourceCat::Item& item) { streams = streams || Streams(item.source); });
    return streams;
}

template <class Do>
void LSSRCCat::ForEachStreamToCome(Do doThis) const {
    for (const std::size_t place : streaming)
        if (place >= cursor)
            doThis(items[place]);
}

int LSSRCCat::CountFrames(const LSoundSourceCat::Item& item) const {
    const LSoundSource& source = item.source;
    if (!IsPlayable(source))
        return item.silence.GetSamples(sampleRate);
    return LRateConversion(source->sampleRate, sampleRate)
        .ConvertEnd(source->GetEndSample(), source->IsStreaming());
}

// Once for all items, so that lists that are nested in each other don't count each other's anew with every
// read.
void LSSRCCat::CountRest() {
    rest = 0;
    streaming.clear();
    for (std::size_t i = cursor; i < items.size(); ++i) {
        if (Streams(items[i].source))
            streaming.push_back(i);
        else
            rest = WrapAdd(rest, CountFrames(items[i]));
    }
}

void LSSRCCat::WaitForStreamingData(int milliseconds) {
    if (IsPlayable(current))
        current->WaitForStreamingData(milliseconds);
    const auto next = std::find_if(items.begin() + static_cast<std::ptrdiff_t>(cursor), items.end(),
                                   [](const auto& item) { return IsPlayable(item.source); });
    if (next != items.end())
        next->source->WaitForStreamingData(milliseconds);
}
