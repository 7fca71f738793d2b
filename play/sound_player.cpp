#include "play/sound_player.h"

#include "play/standard_sound.h"

#include <utility>

int GetVolumeLevel(LDB volume) {
    const std::int8_t decibels = volume.GetDecibels();
    const int level = 5 * decibels + 180; // Kept quirk: from 12 to 13 dB it jumps from 240 to 256
    return decibels < -36 ? 0 : decibels > 12 ? 256 : level;
}

LSoundPlayer::LSoundPlayer(LSoundChannelOpener opener, LOutputRateFinder finder)
    : open(std::move(opener)),
      findRate(std::move(finder)) {
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
    source = toPlay;
    start = toPlay->GetPositionSample();
    LSoundTime time;
    time.SetSamples(start, toPlay->sampleRate);
    if (!Open(LSoundChannel::LowestRate))
        return false;
    TellStart(time);
    return true;
}

void LSoundPlayer::Start(const LHiresOpener& opener) {
    Stop();
    Begin(std::make_unique<LHiresSound>(opener));
    TellStart({});
}

void LSoundPlayer::TellStart(LSoundTime position) {
    notify->spntfPlay(notifyId);
    NotifyTime(position);
}

bool LSoundPlayer::Open(int lowestRate) {
    auto sound = std::make_unique<LStandardSound>(source, lowestRate);
    if (sound->IsUsable())
        Begin(std::move(sound));
    else
        source.Close();
    return playback != nullptr;
}

void LSoundPlayer::Begin(std::unique_ptr<LPlayedSound> sound) {
    LThreadQueuedNotify& news = *this;
    playback = std::make_unique<LPlayback>(std::move(sound), findRate, open, news);
    playback->Begin(playDevice, title, previous, volume);
}

/// Nothing has been heard yet.
void LSoundPlayer::OpenFaster() {
    status = playback->Finish();
    playback.reset();
    source->Seek(start);
    if (!Open(LSoundChannel::LowestCommonRate))
        notify->spntfStop(notifyId);
}

void LSoundPlayer::Stop() {
    owner.Check();
    if (!playback)
        return;
    status = playback->Finish();
    previous = playback->GetSilence();
    playback.reset();
    source.Close();
    notify->spntfStop(notifyId);
}

LPlayStatus LSoundPlayer::GetStatus() const {
    owner.Check();
    return playback ? playback->GetStatus() : status;
}

std::optional<LPlayFormat> LSoundPlayer::GetFormat() const {
    owner.Check();
    return playback ? playback->GetFormat() : std::nullopt;
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
            NotifyTime(playback->GetEnd());
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

void LSoundPlayer::NotifyTime(LSoundTime time) {
    if (playback) // the owner may have stopped it
        notify->spntfTime(time, notifyId);
}
