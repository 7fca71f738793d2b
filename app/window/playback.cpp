#include "app/window/playback.h"

#include "app/quality.h"
#include "app/setting_names.h"
#include "app/window/notices.h"
#include "app/window/play_input.h"
#include "gui/toolkit.h"
#include "jobs/file_notices.h"
#include "sound/decibels.h"
#include "sys/desktop/message_box.h"
#include "sys/file.h"

#include <algorithm>
#include <utility>

namespace {

void ReportLostOutput() {
    LShowMessageBox("Sound Play Error",
                    "Unable to start playback.\r\n\r\nThis might be because the sound card is being used by "
                    "some other applications or because you have not selected the correct Sound Play Device "
                    "using Play Settings.");
}

void ReportNoSound() {
    ShowNotice({"Error", "The tone can't be played: it can't be had at the output's rate."});
}

LMeterLevels MeasureOutput(const LSoundHeard& heard, LDB volume) {
    LMeterLevels levels{.peaks = {}, .limiter = ToDecibels(heard.limiterGain / double{UnityGain})};
    for (std::size_t c = 0; c < heard.channels; ++c)
        levels.peaks.push_back(
            ToDecibels(heard.peaks[c] / double{FullScale16} * GetVolumeLevel(volume) / 256));
    return levels;
}

} // namespace

LDB ReadPlayVolume() {
    return LDB(static_cast<std::int8_t>(std::clamp(Setting::PlayVolume.Get(), -127, 127)));
}

Playback::Playback(LToolkit& windowToolkit, const SonvireData& currentTone, PlaybackView& playbackView,
                   DeviceList& deviceList, LSoundChannelOpener open, LOutputRateFinder findRate)
    : toolkit(windowToolkit),
      tone(currentTone),
      view(playbackView),
      devices(deviceList),
      player(std::move(open), std::move(findRate)) {}

void Playback::Begin(std::function<void()> changed) {
    tellChange = std::move(changed);
    player.SetNotify(this, 0);
}

void Playback::End() {
    player.Stop();
    player.SetNotify(nullptr, 0);
}

void Playback::CmPlay() {
    if (!player.IsPlaying())
        devices.Refresh();
    player.SetDevice(LSoundPlayDevice::OfNameOrDefault(Setting::OutDevice.Get()));
    player.SetTitle(tone.GetToneName());
    SetVolume(ReadPlayVolume());
    const PlayInput input = OpenPlayInput(tone, GetQuality());
    if (input.failure) {
        player.Stop();
        ShowNotice({"Error", "The tone can't be played: it " + input.failure.GetReason() + "."});
        return;
    }
    TellProblems(input);
    news = input.news;
    TellLength(input);
    if (!input.start(player))
        ReportLostOutput();
}

void Playback::TellLength(const PlayInput& input) {
    endless = input.endless || input.isNeverLeft;
    loweredDb = input.loweredDb;
    sinceStart = LSoundTime();
    const bool loops = input.endless && !input.isNeverLeft && tone.repeat != 0;
    const LSoundTime turn(loops && tone.HasFlag(ToneFlagDuration) ? static_cast<int>(tone.durationMs) : 0);
    view.SetLength(endless ? turn : input.length, loops);
}

void Playback::SetVolume(LDB decibels) {
    volume = decibels;
    player.SetPlayVolume(volume);
}

/// Once for all the times that the list plays as it is, and while it does.
void Playback::TellProblems(const PlayInput& input) {
    if (std::exchange(problems, input.warnings) == input.warnings || problems.empty())
        return;
    const std::string list = tone.GetListPath();
    const LFailure gone = CheckReadable(list);
    std::vector<LNotice> notices = input.notices;
    notices.insert(notices.begin(), gone ? DescribeUnreadable(list, gone)
                                         : LNotice{"Tone List", "Not all of the list plays as it should:" +
                                                                    ListWarnings(problems)});
    toolkit.Post([notices] { ShowNotices(notices); });
}

void Playback::Restart() {
    if (player.IsPlaying())
        CmPlay();
}

void Playback::spntfPlay(long /*id*/) {
    tellChange();
}

void Playback::spntfStop(long /*id*/) {
    TellNews();
    view.ShowStopped();
    tellChange();
    if (player.GetStatus() != PlayUsable) {
        devices.Refresh();
        // once the player is done with its stop
        toolkit.Post(player.GetStatus() == PlayNoSound ? ReportNoSound : ReportLostOutput);
    }
}

void Playback::TellNews() {
    std::vector<LNotice> notices;
    for (const LFileWarning& warning : news->Take())
        notices.push_back(DescribeFailed(
            warning.file, warning.reason + (warning.isLoss ? "; silence plays in its place" : "")));
    if (!notices.empty())
        toolkit.Post([notices] { ShowNotices(notices); });
}

void Playback::spntfTime(LSoundTime time, long /*id*/) {
    TellNews();
    if (const auto format = player.GetFormat())
        view.ShowFormat(*format, loweredDb);
    if (player.IsPlaying())
        view.ShowPosition(endless ? sinceStart : time);
}

void Playback::spntfHeard(const LSoundHeard& heard, long /*id*/) {
    sinceStart = heard.sinceStart;
    if (player.IsPlaying())
        view.ShowLevels(MeasureOutput(heard, volume));
}
