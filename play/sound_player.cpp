#include "play/sound_player.h"

#include "sound/fixed_point.h"
#include "sound/sample_format.h"
#include "sound/stages/peak_limit.h"

#include <algorithm>

namespace {

constexpr int BlocksPerSecond = 10;
constexpr int MinBlockFrames = 20;
constexpr int FillPriority = 2;
constexpr unsigned int RestMs = 250;
/// Short, so that a stop need not wait for data.
constexpr int StreamingRestMs = 20;

int ToChannelVolume(int decibels) {
    if (decibels < -36)
        return 0;
    return decibels > 12 ? 256 : 5 * decibels + 180; // 12 dB is 240: the jump to 256 is meant
}

} // namespace

LSoundPlayer::LSoundPlayer(LSoundChannelOpener opener) : open(std::move(opener)) {}

LSoundPlayer::~LSoundPlayer() {
    Stop();
}

void LSoundPlayer::SetNotify(LSoundPlayerNotify* target, long id) {
    notify = target ? target : this;
    notifyId = id;
}

bool LSoundPlayer::Start(const LSoundSource& toPlay) {
    Stop();
    if (toPlay->status != SoundUsable)
        return false;
    source = LSPPeakLimit(FullScale16).OpenSource(toPlay);
    if (source->status != SoundUsable) {
        source.Close();
        return false;
    }
    blockFrames = std::clamp(source->sampleRate / BlocksPerSecond, MinBlockFrames, MaxBlockFrames);
    ring = std::make_shared<LSoundPlayerRing>(blockFrames, source->channels);
    request = {.rate = source->sampleRate,
               .channels = source->channels,
               .device = playDevice,
               .title = title,
               .ring = ring,
               .after = previous};
    work.resize(static_cast<std::size_t>(blockFrames) * source->channels);
    written = reported = 0;
    raised = false;
    status = PlayUsable;
    playing = true;
    const int position = source->GetPositionSample();
    if (!LThread::Start(FillPriority))
        End(PlayNoOutput);
    notify->spntfPlay(notifyId);
    NotifyTime(position);
    return true;
}

void LSoundPlayer::Stop() {
    if (!playing)
        return;
    StopThreadNow();
    source.Close();
    previous = ring->silence;
    ring.reset();
    request = {};
    playing = false;
    ended = false;
    report = {}; // nobody shares it now
    notify->spntfStop(notifyId);
}

void LSoundPlayer::SetPlayVolumeStandard(LDB level) {
    {
        const std::scoped_lock lock(volumeMutex);
        volume = static_cast<std::uint32_t>(ToChannelVolume(level.GetDecibels())) * 0x10001;
        volumePending = true;
    }
    if (ring)
        ring->done.Signal(); // now, not when the next buffer comes back
}

void LSoundPlayer::EvNotify() {
    if (ended) {
        if (status == PlayUsable)
            NotifyTime(source->GetEndSample());
        if (ended) // the owner may have started anew
            Stop();
        return;
    }
    Report news;
    {
        const std::scoped_lock lock(reportMutex);
        std::swap(news, report);
    }
    if (!news.changed)
        return;
    notify->spntfLevel(news.levels, notifyId);
    if (playing)
        NotifyTime(news.position);
}

void LSoundPlayer::NotifyTime(int position) {
    LSoundTime time;
    time.SetSamples(position, source->sampleRate);
    notify->spntfTime(time, notifyId);
}

void LSoundPlayer::ThreadFunction() {
    {
        const std::scoped_lock lock(volumeMutex);
        volumePending = volume.has_value();
    }
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
bool LSoundPlayer::Refill() {
    const unsigned int queued = written - reported;
    const int remaining = WrapSubtract(source->GetEndSample(), source->GetPositionSample());
    const bool full = queued == LSoundPlayerRing::Buffers;
    if (!full && remaining > 0) {
        QueueBlock(std::min(remaining, blockFrames));
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

void LSoundPlayer::Rest() {
    RaisePriority();
    WaitSignal(ring->done, RestMs);
}

/// Before the first wait: until then the thread is to catch up, not to be on time.
void LSoundPlayer::RaisePriority() {
    if (!raised)
        SetPriority(PriorityRealTime);
    raised = true;
}

void LSoundPlayer::SendVolume() {
    const std::scoped_lock lock(volumeMutex);
    if (volumePending)
        channel->SetVolume(*volume);
    volumePending = false;
}

void LSoundPlayer::ReportHeard() {
    for (; reported != written; ++reported) {
        const LSoundPlayerBuffer& buffer = ring->buffers[reported % LSoundPlayerRing::Buffers];
        if (!buffer.free)
            return;
        {
            const std::scoped_lock lock(reportMutex);
            report = {.position = buffer.endPosition, .levels = buffer.levels, .changed = true};
        }
        PostQueueNotify();
    }
}

void LSoundPlayer::QueueBlock(int frames) {
    LSoundPlayerBuffer& buffer = ring->buffers[written % LSoundPlayerRing::Buffers];
    const int start = source->GetPositionSample();
    source->Read(work.data(), frames);
    ConvertSamplesOut<LSF16>(buffer.samples, work.data(), frames * source->channels);
    MeasureLevels(buffer, frames);
    buffer.Write(*channel, frames, WrapAdd(start, frames));
    ++written;
}

void LSoundPlayer::MeasureLevels(LSoundPlayerBuffer& buffer, int frames) const {
    buffer.levels = LDBMC(source->channels);
    for (std::uint8_t c = 0; c < buffer.levels.GetChannels(); ++c)
        buffer.levels[c] = GetBufferRMSDBChan(c, work.data(), frames, source->channels);
}

void LSoundPlayer::End(LPlayStatus reason) {
    status = reason;
    ended = true;
    PostQueueNotify();
}

/// False where the channel is of no use any more.
bool LSoundPlayer::CheckChannel() {
    switch (channel->GetState()) {
    case LSoundChannelState::NoOutput:
        End(PlayNoOutput);
        return false;
    case LSoundChannelState::NoDevice:
        End(PlayNoDevice);
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
