#include "play/playback.h"

#include "play/server_turn.h"

#include <utility>

namespace {

constexpr int FillPriority = 2;
constexpr unsigned int RestMs = 250;
/// Short, so that a stop need not wait for data.
constexpr int StreamingRestMs = 20;

} // namespace

LPlayback::LPlayback(std::unique_ptr<LPlayedSound> toPlay, LOutputRateFinder finder,
                     LSoundChannelOpener opener, LThreadQueuedNotify& toNotify)
    : sound(std::move(toPlay)),
      findRate(std::move(finder)),
      open(std::move(opener)),
      news(toNotify) {}

void LPlayback::Begin(const LSoundPlayDevice& device, const std::string& title,
                      const LSoundPlayerRing::Silence& after, std::optional<std::uint32_t> volumeWord) {
    owner.Check();
    request = {.format = {}, .device = device, .title = title, .ring = ring, .after = after};
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
    if (!Open())
        return;
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

/// False where there is nothing to play.
bool LPlayback::Open() {
    const std::optional<LPlayFormat> format = sound->Open([this] { return FindRate(); });
    if (!format) {
        if (!IsStopRequested())
            End(PlayNoSound);
        return false;
    }
    request.format = *format;
    ring->MakeRoom(*format);
    channel = open(request);
    opened = true;
    return true;
}

/// 0 where the playback is stopped meanwhile.
int LPlayback::FindRate() {
    if (!findRate)
        return LOutputRate::Usual;
    const std::shared_ptr<LOutputRate> question = findRate(request.device);
    WaitSignal(question->answered, ServerQueue::Limit.count());
    question->forgotten.request_stop();
    if (IsStopRequested())
        return 0;
    const int rate = question->rate;
    return rate > 0 ? rate : LOutputRate::Usual;
}

std::optional<LPlayFormat> LPlayback::GetFormat() const {
    return opened ? std::optional(request.format) : std::nullopt;
}

/// False once there is nothing more to play.
bool LPlayback::Refill() {
    const unsigned int queued = written - reported;
    const bool full = queued == LSoundPlayerRing::Buffers;
    const int ahead = full ? 0 : sound->GetAhead(request.format.GetBlockFrames());
    if (ahead > 0) {
        QueueBlock(ahead);
    } else if (!full && sound->IsStreaming()) {
        RaisePriority();
        sound->WaitForStreamingData(StreamingRestMs);
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
            Report next{.position = buffer.endTime, .levels = buffer.levels, .heard = {}};
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
    sound->Read(buffer, frames);
    buffer.frames = frames;
    framesRead += frames;
    buffer.heard.sinceStart = request.format.GetTime(framesRead);
    buffer.free = false;
    channel->Queue(buffer);
    ++written;
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
