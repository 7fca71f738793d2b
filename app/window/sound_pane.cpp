#include "app/window/sound_pane.h"

#include "app/quality.h"
#include "app/setting_names.h"
#include "app/window/command_ids.h"
#include "app/window/sound_survey.h"
#include "app/window/way_back.h"
#include "gui/menu.h"
#include "gui/window.h"

#include <algorithm>

namespace {

constexpr int LeastList = 130; ///< of the list, beside a pane
constexpr int RoomShare = 40;  ///< percent, that the pane has at least

} // namespace

SoundPane::SoundPane(LWindow& owner, const SonvireData& currentTone) : window(owner), tone(currentTone) {}

void SoundPane::Create() {
    back = std::make_shared<WayBack>(window.GetToolkit());
    window.GetControls().Add({ControlSound, LControlKind::Sound, "", {}});
    window.SetName(ControlSound, "Wave and spectrum");
    peer = window.GetControls().CreateSoundViewPeer(ControlSound);
    peer->SetVisible(false);
    isOpen = Setting::SoundOpen.Get();
    look = {.hasWave = Setting::SoundWave.Get(),
            .hasSpectrum = Setting::SoundSpectrum.Get(),
            .isWhole = Setting::SoundWhole.Get(),
            .isLinear = Setting::SoundLinear.Get()};
    look.hasWave |= !look.hasSpectrum;
    peer->SetLook(look);
}

void SoundPane::Destroy() {
    Leave();
    peer.reset();
}

void SoundPane::Leave() {
    work.Drop();
    if (back)
        back->Shut();
}

void SoundPane::Follow() {
    const SoundRequest wanted{tone, GetQuality().savedRate};
    if (height == 0 || (asked == wanted && !tone.IsList())) // whose files may be others by now
        return;
    asked = wanted;
    Ask();
}

void SoundPane::Ask() {
    const bool isTaken = work.Ask([this, request = *asked, way = back](const NewestWork::IsWanted& isWanted) {
        SoundSurvey::Run(request, isWanted, [&](const LShownSoundPtr& sound) {
            way->Post([this, sound, isWanted] {
                if (isWanted())
                    peer->Show(sound);
            });
        });
    });
    if (!isTaken)
        asked.reset(); // the next change tries again
}

int SoundPane::GetHeight(int room, int list, int texts) const {
    const int figures = peer->GetFiguresHeight();
    if (!isOpen || room < 3 * figures)
        return 0;
    const int whole = std::max(peer->GetPlotsHeight(), room * RoomShare / 100);
    return room - whole < std::min(list, LeastList) + texts ? figures : whole;
}

void SoundPane::Place(const LRect& room) {
    height = room.height;
    peer->SetVisible(height > 0);
    if (height > 0) {
        window.GetControls().Place(ControlSound, room);
        Follow();
    } else {
        work.Drop();
        asked.reset();
    }
}

bool SoundPane::Change(int command) {
    switch (command) {
    case CommandViewSound:
        isOpen = !isOpen;
        Setting::SoundOpen.Set(isOpen);
        return true;
    case CommandViewBoth:
    case CommandViewWave:
    case CommandViewSpectrum:
        look.hasWave = command != CommandViewSpectrum;
        look.hasSpectrum = command != CommandViewWave;
        break;
    case CommandViewPeriods:
    case CommandViewWhole:
        look.isWhole = command == CommandViewWhole;
        break;
    case CommandViewLog:
    case CommandViewLinear:
        look.isLinear = command == CommandViewLinear;
        break;
    case CommandResetZoom:
        return peer->ResetZoom(), true;
    case CommandCopyPicture:
        return peer->CopyPicture(), true;
    case CommandCopyCsv:
        return peer->CopyCsv(), true;
    default:
        return false;
    }
    Setting::SoundWave.Set(look.hasWave);
    Setting::SoundSpectrum.Set(look.hasSpectrum);
    Setting::SoundWhole.Set(look.isWhole);
    Setting::SoundLinear.Set(look.isLinear);
    peer->SetLook(look);
    return true;
}

void SoundPane::MarkMenuItems(LMenu& menu) const {
    menu.SetCheck(CommandViewSound, isOpen);
    menu.EnableRange(CommandViewBoth, CommandCopyCsv, isOpen);
    menu.SetRadio(CommandViewBoth, CommandViewSpectrum,
                  !look.hasWave      ? CommandViewSpectrum
                  : look.hasSpectrum ? CommandViewBoth
                                     : CommandViewWave);
    menu.SetRadio(CommandViewPeriods, CommandViewWhole, look.isWhole ? CommandViewWhole : CommandViewPeriods);
    menu.SetRadio(CommandViewLog, CommandViewLinear, look.isLinear ? CommandViewLinear : CommandViewLog);
}
