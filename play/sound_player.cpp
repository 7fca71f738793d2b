#include "play/sound_player.h"

#include "sound/sample_format.h"
#include "sound/stages/convert_rate.h"
#include "sound/stages/peak_limit.h"

#include <algorithm>

int GetVolumeLevel(LDB volume) {
    const std::int8_t decibels = volume.GetDecibels();
    const int level = 5 * decibels + 180; // Kept quirk: from 12 to 13 dB it jumps from 240 to 256
    return decibels < -36 ? 0 : decibels > 12 ? 256 : level;
}

LSoundPlayer::LSoundPlayer(LSoundChannelOpener opener) : open(std::move(opener)) {
    owner.Check();
}

LSoundPlayer::~LSoundPlayer() {
    Stop();
}

void LSoundPlayer::SetNotify(LSoundPlayerNotify* target, long id) {
    owner.Check();
    notify = target ? target : this;
    notifyId = id;
}

void LSoundPlayer::SetDevice(const LSoundPlayDevice& device) {
    owner.Check();
    playDevice = device;
}

void LSoundPlayer::SetTitle(const std::string& text) {
    owner.Check();
    title = text;
}

bool LSoundPlayer::Start(const LSoundSource& toPlay) {
    Stop();
    if (toPlay->status != SoundUsable)
        return false;
    start = toPlay->GetPositionSample();
    if (!Open(toPlay, LSoundChannel::LowestRate))
        return false;
    notify->spntfPlay(notifyId);
    NotifyTime(start);
    return true;
}

bool LSoundPlayer::Open(const LSoundSource& toPlay, int lowestRate) {
    const int rate = std::clamp(toPlay->sampleRate, lowestRate, LSoundChannel::HighestRate);
    const auto limiter = std::make_shared<LLimiterNews>();
    const LSoundSource prepared =
        LSPPeakLimit(FullScale16, limiter).OpenSource(LSPConvertRate(rate).OpenSource(toPlay));
    if (prepared->status != SoundUsable)
        return false;
    LThreadQueuedNotify& news = *this;
    playback = std::make_unique<LPlayback>(toPlay, prepared, limiter, open, news);
    playback->Begin(playDevice, title, previous, volume);
    return true;
}

/// Nothing has been heard yet.
void LSoundPlayer::OpenFaster() {
    const LSoundSource source = playback->GetSource();
    status = playback->Finish();
    playback.reset();
    source->Seek(start);
    if (!Open(source, LSoundChannel::LowestCommonRate))
        notify->spntfStop(notifyId);
}

void LSoundPlayer::Stop() {
    owner.Check();
    if (!playback)
        return;
    status = playback->Finish();
    previous = playback->GetSilence();
    playback.reset();
    notify->spntfStop(notifyId);
}

LPlayStatus LSoundPlayer::GetStatus() const {
    owner.Check();
    return playback ? playback->GetStatus() : status;
}

void LSoundPlayer::SetPlayVolumeStandard(LDB level) {
    owner.Check();
    volume = 0x10001 * static_cast<std::uint32_t>(GetVolumeLevel(level));
    if (playback)
        playback->SetVolume(*volume);
}

void LSoundPlayer::EvNotify() {
    owner.Check();
    if (HasEnded() && GetStatus() == PlayTooSlow)
        OpenFaster();
    if (HasEnded()) {
        if (GetStatus() == PlayUsable)
            NotifyTime(playback->GetSource()->GetEndSample());
        if (HasEnded()) // the owner may have started anew
            Stop();
        return;
    }
    const std::optional<LPlayback::Report> report = playback ? playback->TakeReport() : std::nullopt;
    if (!report)
        return;
    notify->spntfLevel(report->levels, notifyId);
    if (playback) // the owner may have stopped it
        notify->spntfHeard(report->heard, notifyId);
    NotifyTime(report->position);
}

void LSoundPlayer::NotifyTime(int position) {
    if (!playback)
        return;
    LSoundTime time;
    time.SetSamples(position, playback->GetSource()->sampleRate);
    notify->spntfTime(time, notifyId);
}
