#include "app/window/main_dialog.h"

#include "app/desktop/help_pages.h"
#include "app/desktop/web_links.h"
#include "app/setting_names.h"
#include "app/window/command_ids.h"
#include "app/window/notices.h"
#include "app/window/tone_commands.h"
#include "app/window/window_tables.h"
#include "gui/toolkit.h"
#include "sys/desktop/folders.h"

#include <algorithm>
#include <utility>

namespace {

std::string CurrentTonePath() {
    return GetUserDataFolder() + "/current.tdf";
}

/// The length of a list is that of its file, which is not the tone's to go back from.
bool IsSameState(const SonvireData& one, const SonvireData& other) {
    SonvireData same = one;
    if (one.IsList() && other.IsList())
        same.durationMs = other.durationMs;
    return same == other;
}

std::shared_ptr<ToneDocument> OpenLastDocument() {
    const std::string path = Setting::Document.Get();
    if (path.empty())
        return std::make_shared<ToneDocument>();
    SonvireData content;
    const bool unread = static_cast<bool>(content.ReadFromFile(path.c_str()));
    return std::make_shared<ToneDocument>(path, unread ? std::nullopt : std::optional(content));
}

} // namespace

MainDialog::MainDialog(LToolkit& windowToolkit, int argumentCount, const char* const* arguments,
                       MainOutputs outputs)
    : LMainWindow(windowToolkit, argumentCount, arguments),
      status(*this),
      devices(windowToolkit, std::move(outputs.listNames),
              [this](const auto& names) { status.SetDevices(names); }),
      playback(windowToolkit, tone, status, devices, std::move(outputs.open), std::move(outputs.findRate)),
      witness(tone, playback),
      rows(*this, tone),
      summary(*this),
      sound(*this, tone),
      files(*this, state, [this](const std::string& line) { ShowPassing(line); }),
      lists(*this, tone, files, history) {}

void MainDialog::InitDialog() {
    SetCaption("Sonvire");
    rows.Create();
    summary.Create();
    sound.Create();
    SetStatusBar(StatusFields::GetItems());
    status.Init();
    SetToolBar(GetMainToolBar());
    SetToolBarSmallIcons(ControlSmallToolBar, smallToolBar, GetSmallToolBar());
    SetName(ControlSmallToolBar, "Tone tool bar");
    SetName(ControlList, "Tone data");
    SetName(ControlPosition, "Position");
    SetMenu(GetMainMenu());
    SetKeys(*this, GetMainKeys());
    playback.Begin([this] { EnableControls(); });
    static_cast<void>(tone.ReadFromFile(CurrentTonePath().c_str())); // at first there is none
    state.document = OpenLastDocument();
    ShowDocument();
    RememberDocument();
    ShowRecent();
    witness.Watch(CurrentTonePath());
    lists.RemoveUnused();
    rows.Begin();
    ShowSummary();
    if (Setting::Autoplay.Get())
        playback.CmPlay();
}

void MainDialog::DestroyDialog() {
    playback.End();
    devices.Leave();
    sound.Destroy();
    static_cast<void>(tone.WriteToFile(CurrentTonePath().c_str())); // there is nobody left to tell
    witness.Leave();
    history = {};
    lists.RemoveUnused();
    LWatchSettings(nullptr);
    rows.Destroy();
    OpenThankYouPageOnce(GetToolkit());
}

void MainDialog::EvStarted() {
    LWatchSettings([this](const LFailure& failure) {
        GetToolkit().Post([failure] {
            ShowNotice({"Settings", "Your settings can't be kept: " + failure.GetReason() + "."});
        });
    });
    Setting::FirstRun.Set(true);
}

void MainDialog::LayoutControls(int width, int height) {
    content = {0, 0, width, height};
    LControlsPeer& controls = GetControls();
    const int barHeight = controls.GetPlace(ControlSmallToolBar).height;
    controls.Place(ControlSmallToolBar, {0, 0, width, barHeight});
    const int paneHeight = sound.GetHeight(height - barHeight, rows.GetHeight(), summary.GetHeight());
    const int listHeight = std::min(rows.GetHeight(), height - barHeight - paneHeight);
    controls.Place(ControlList, {0, barHeight, width, listHeight});
    const int listEnd = barHeight + listHeight;
    const int end =
        summary.Place({0, listEnd, width, height - listEnd - paneHeight}, height, paneHeight == 0);
    sound.Place({0, end, width, paneHeight > 0 ? height - end : 0});
}

void MainDialog::ShowSummary() {
    summary.Show(tone);
    LayoutControls(content.width, content.height);
    sound.Follow();
}

MainState MainDialog::GetState() const {
    return {.tone = tone, .selected = rows.HasSelection(), .playing = playback.IsPlaying()};
}

void MainDialog::EnableControls() {
    EnableMenuItems(GetMenu(), GetState());
    sound.MarkMenuItems(GetMenu());
    EnableToolBarItems(GetToolBar(), smallToolBar, GetState());
}

void MainDialog::CmHelp() {
    OpenHelpPage(*this, HelpPage::Start);
}

void MainDialog::RelistandStart(bool changed) {
    if (!changed)
        return;
    if (tone.IsList())
        TakeLength(tone);
    rows.SetupListViewData();
    ShowSummary();
    playback.Restart();
}

bool MainDialog::MayReplaceTone() {
    const LMessageAnswer answer = lists.AskToSave();
    const bool saved = answer == LMessageAnswer::Yes && lists.CmSaveList();
    RelistandStart(saved);
    return saved || answer == LMessageAnswer::No;
}

void MainDialog::Restart(bool changed) {
    if (!changed)
        return;
    summary.Show(tone);
    sound.Follow();
    playback.Restart();
}

/// What another change brings about is a part of it.
void MainDialog::Record(const std::function<void()>& change, int series) {
    if (std::exchange(recording, true)) {
        change();
        return;
    }
    const ToneState before = state;
    const std::string pathBefore = shownPath;
    change();
    recording = false;
    if (!IsSameState(before.tone, tone))
        history.Keep(before, series);
    else if (series == ToneHistory::NoSeries)
        history.EndSeries();
    lists.RemoveUnused();
    ShowDocument();
    if (shownPath != pathBefore)
        RememberDocument();
}

void MainDialog::Restore(const std::optional<ToneState>& past) {
    if (!past)
        return;
    state = *past;
    RelistandStart();
    ShowDocument();
}

void MainDialog::ShowDocument() {
    const LWindowDocument document = state.document->Describe(tone);
    SetDocument(document);
    GetMenu().Enable(CommandUndo, history.CanUndo());
    GetMenu().Enable(CommandRedo, history.CanRedo());
    if (std::exchange(shownPath, document.path) != document.path)
        Setting::Document.Set(state.document->GetPath());
}

/// Only what was opened or saved: what is gone back to keeps its place.
void MainDialog::RememberDocument() {
    if (shownPath.empty() || shownPath == recent.GetPath(0))
        return;
    recent.Add(shownPath);
    ShowRecent();
}

void MainDialog::ShowRecent() {
    for (std::size_t place = 0; place < RecentFiles::Most; ++place)
        GetMenu().SetText(CommandOpenRecent + static_cast<int>(place), recent.GetLabel(place));
}

LWindowGeometry MainDialog::ReadGeometry() {
    LWindowGeometry geometry;
    geometry.width = Setting::WindowWidth.Get();
    geometry.height = Setting::WindowHeight.Get();
    geometry.x = Setting::WindowX.Get();
    geometry.y = Setting::WindowY.Get();
    geometry.maximized = Setting::WindowMaximized.Get();
    return geometry;
}

void MainDialog::WriteGeometry(const LWindowGeometry& geometry) {
    Setting::WindowMaximized.Set(geometry.maximized);
    Setting::WindowX.Set(geometry.x);
    Setting::WindowY.Set(geometry.y);
    Setting::WindowWidth.Set(geometry.width);
    Setting::WindowHeight.Set(geometry.height);
}
