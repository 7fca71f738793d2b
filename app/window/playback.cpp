#include "app/window/main_dialog.h"

#include "app/window/notices.h"
#include "app/window/tone_commands.h"
#include "gui/toolkit.h"
#include "sys/desktop/message_box.h"
#include "sys/desktop/settings.h"
#include "tone/tone_engine.h"
#include "tone/tone_list_report.h"

void MainDialog::CmPlay() {
    if (!player.IsPlaying())
        devices.Refresh();
    player.SetDevice(FindDevice());
    player.SetTitle(tone.GetToneName());
    player.SetPlayVolume(StatusFields::ReadVolume());
    ToneListReport report;
    const LSoundSource source = OpenToneEngine(tone, &report);
    ShowNotices(report.notices);
    status.SetLength(tone.IsFinite() ? source.GetEnd() : LSoundTime());
    if (!player.Start(source))
        ReportLostOutput();
}

/// A device is looked up once: asking the sound server at every step of a value would make the window wait.
/// A name that no output has is asked for again where the user starts to play.
LSoundPlayDevice MainDialog::FindDevice() {
    const std::string name = StatusFields::ReadDevice();
    const bool known =
        name == deviceName && player.GetStatus() == PlayUsable && (player.IsPlaying() || !device.IsDefault());
    if (!known)
        device = name.empty() ? LSoundPlayDevice() : LSoundPlayDevice::OfName(name.c_str());
    deviceName = name;
    return device;
}

void MainDialog::Restart() {
    if (player.IsPlaying())
        CmPlay();
}

void MainDialog::RelistandStart() {
    if (IsList(tone))
        TakeLength();
    SetupListViewData();
    Restart();
}

/// The length of one pass, also of a tone that loops. What is wrong with a list is told when it plays.
void MainDialog::TakeLength() {
    SonvireData onePass = tone;
    onePass.repeat = 0;
    ToneListReport untold;
    tone.durationMs = static_cast<std::uint32_t>(OpenToneEngine(onePass, &untold).GetEnd().GetMilliseconds());
}

void MainDialog::CmRepeatPlay() {
    tone.flags |= ToneFlagDuration; // a loop has an end to go back from
    tone.repeat = tone.repeat == 0 ? 1 : 0;
    RelistandStart();
}

void MainDialog::ReportLostOutput() {
    LShowMessageBox("Sound Play Error",
                    "Unable to start playback.\r\n\r\nThis might be because the sound card is being used by "
                    "some other applications or because you have not selected the correct Sound Play Device "
                    "using Play Settings.");
}

void MainDialog::spntfPlay(long /*id*/) {
    EnableControls();
}

void MainDialog::spntfStop(long /*id*/) {
    status.ShowStopped();
    EnableControls();
    if (player.GetStatus() != PlayUsable) {
        devices.Refresh();
        GetToolkit().Post([this] { ReportLostOutput(); }); // once the player is done with its stop
    }
}

void MainDialog::spntfTime(LSoundTime time, long /*id*/) {
    if (player.IsPlaying())
        status.ShowPosition(time);
}

void MainDialog::spntfLevel(const LDBMC& levels, long /*id*/) {
    if (player.IsPlaying())
        status.ShowLevels(levels);
}
