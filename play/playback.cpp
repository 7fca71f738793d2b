#include "play/playback.h"

#include "sound/fixed_point.h"
#include "sound/sample_format.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int FillPriority = 2;
constexpr unsigned int RestMs = 250;
/// Short, so that a stop need not wait for data.
constexpr int StreamingRestMs = 20;

/// After 24 days, which is the most that there is, the time stands.
LSoundTime ToTime(std::int64_t frames, int rate) {
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    return LSoundTime(static_cast<int>(std::min(frames * 1000 / rate, most)));
}

} // namespace

LPlayback::LPlayback(const LSoundSource& toPlay, const LSoundSource& prepared,
                     std::shared_ptr<LLimiterNews> limited, const LSoundChannelOpener& opener,
                     LThreadQueuedNotify& toNotify)
    : original(toPlay),
      source(prepared),
      limiter(std::move(limited)),
      open(opener),
      news(toNotify),
      format{.rate = source->sampleRate, .channels = source->channels},
      ring(std::make_shared<LSoundPlayerRing>()),
      work(static_cast<std::size_t>(format.GetBlockFrames()) * source->channels) {
    ring->MakeRoom(format);
}

void LPlayback::Begin(const LSoundPlayDevice& device, const std::string& title,
                      const LSoundPlayerRing::Silence& after, std::optional<std::uint32_t> volumeWord) {
    owner.Check();
    request = {.format = format, .device = device, .title = title, .ring = ring, .after = after};
    volume = volumeWord;
    if (!Start(FillPriority))
        End(PlayNoOutput);
}

LPlayStatus LPlayback::Finish() {
    owner.Check();
    StopThreadNow();
    return status;
}

void LPlayback::SetVolume(std::uint32_t word) {
    owner.Check();
    {
        const std::scoped_lock lock(mutex);
        volume = word;
    }
    ring->done.Signal(); // now, not when the next buffer comes back
}

std::optional<LPlayback::Report> LPlayback::TakeReport() {
    owner.Check();
    const std::scoped_lock lock(mutex);
    return std::exchange(report, std::nullopt);
}

void LPlayback::ThreadFunction() {
    channel = open(request);
    while (!IsStopRequested()) {
        // First, so that what comes after any of the tests below ends the rest.
        ring->done.Reset();
        SendVolume();
        ReportHeard();
        if (!CheckChannel() || !Refill())
            break;
    }
    channel.reset();
}

/// False once there is nothing more to play.
bool LPlayback::Refill() {
    const unsigned int queued = written - reported;
    const int remaining = WrapSubtract(source->GetEndSample(), source->GetPositionSample());
    const bool full = queued == LSoundPlayerRing::Buffers;
    if (!full && remaining > 0) {
        QueueBlock(std::min(remaining, format.GetBlockFrames()));
    } else if (!full && source->IsStreaming()) {
        RaisePriority();
        source->WaitForStreamingData(StreamingRestMs);
    } else if (queued > 0) {
        Rest();
    } else {
        End(PlayUsable);
        return false;
    }
    return true;
}

void LPlayback::Rest() {
    RaisePriority();
    WaitSignal(ring->done, RestMs);
}

/// Before the first wait: until then the thread is to catch up, not to be on time.
void LPlayback::RaisePriority() {
    if (!raised)
        SetPriority(PriorityRealTime);
    raised = true;
}

void LPlayback::SendVolume() {
    const std::scoped_lock lock(mutex);
    if (volume)
        channel->SetVolume(*volume);
    volume.reset();
}

void LPlayback::ReportHeard() {
    for (; reported != written; ++reported) {
        const LSoundPlayerBuffer& buffer = ring->buffers[reported % LSoundPlayerRing::Buffers];
        if (!buffer.free)
            return;
        {
            const std::scoped_lock lock(mutex);
            Report next{.position = buffer.endPosition, .levels = buffer.levels, .heard = {}};
            if (report)
                next.heard = report->heard;
            next.heard.Append(buffer.heard);
            report = next;
        }
        news.PostQueueNotify();
    }
}

void LPlayback::QueueBlock(int frames) {
    LSoundPlayerBuffer& buffer = ring->buffers[written % LSoundPlayerRing::Buffers];
    const int start = source->GetPositionSample();
    source->Read(work.data(), frames);
    ConvertSamplesOut<LSF16>(buffer.GetSamples<std::int16_t>(), work.data(), frames * source->channels);
    MeasureLevels(buffer, frames);
    buffer.Write(*channel, frames, ToOriginal(WrapAdd(start, frames)));
    ++written;
}

/// By the ends, since a conversion of rates comes close to its ratio only.
int LPlayback::ToOriginal(int position) const {
    if (source->sampleRate == original->sampleRate)
        return position;
    const std::int64_t end = std::max(1, source->GetEndSample());
    return static_cast<int>(position * std::int64_t{original->GetEndSample()} / end);
}

void LPlayback::MeasureLevels(LSoundPlayerBuffer& buffer, int frames) {
    buffer.levels = LDBMC(source->channels);
    buffer.heard.channels = buffer.levels.GetChannels();
    for (std::uint8_t c = 0; c < buffer.heard.channels; ++c) {
        buffer.levels[c] = GetBufferRMSDBChan(c, work.data(), frames, source->channels);
        buffer.heard.peaks[c] = GetBufferPeakChan(c, work.data(), frames, source->channels);
    }
    buffer.heard.limiterGain = limiter->TakeLeastGain();
    framesRead += frames;
    buffer.heard.sinceStart = ToTime(framesRead, source->sampleRate);
}

void LPlayback::End(LPlayStatus reason) {
    status = reason;
    ended = true;
    news.PostQueueNotify();
}

/// False where the channel is of no use any more.
bool LPlayback::CheckChannel() {
    switch (channel->GetState()) {
    case LSoundChannelState::NoOutput:
        End(PlayNoOutput);
        return false;
    case LSoundChannelState::NoDevice:
        End(PlayNoDevice);
        return false;
    case LSoundChannelState::TooSlow:
        End(PlayTooSlow);
        return false;
    case LSoundChannelState::Lost:
        End(PlayLost);
        return false;
    case LSoundChannelState::Opening:
    case LSoundChannelState::Open:
        break;
    }
    return true;
}
