#include "app/window/main_dialog.h"

#include "app/desktop/about_dlg.h"
#include "app/desktop/help_pages.h"
#include "app/desktop/web_links.h"
#include "app/window/command_ids.h"
#include "app/window/key_table.h"
#include "app/window/menu_table.h"
#include "app/window/tool_bar_tables.h"
#include "sys/desktop/settings.h"
#include "sys/desktop/folders.h"

namespace {

constexpr const char* Columns[] = {"Tone Data", "Values"};
constexpr const char* GeometrySection = "MainWindow";

std::string CurrentTonePath() {
    return GetUserDataFolder() + "/current.tdf";
}

} // namespace

MainDialog::MainDialog(LToolkit& windowToolkit, int argumentCount, const char* const* arguments,
                       MainOutputs outputs)
    : LMainWindow(windowToolkit, argumentCount, arguments),
      player(std::move(outputs.open)),
      witness(tone, player),
      status(*this),
      devices(windowToolkit, std::move(outputs.listNames),
              [this](const auto& names) { status.SetDevices(names); }) {}

void MainDialog::InitDialog() {
    SetCaption("Sonvire");
    GetControls().Add({ControlList, LControlKind::List, "", {}});
    list = std::make_unique<LListView>(*this, ControlList);
    SetStatusBar(StatusFields::GetItems());
    status.Init();
    SetToolBar(GetMainToolBar());
    SetToolBarSmallIcons(ControlSmallToolBar, smallToolBar, GetSmallToolBar());
    SetMenu(GetMainMenu());
    SetKeys(*this, GetMainKeys());
    player.SetNotify(this, 0);
    InitListView();
    devices.Refresh();
    if (LUserSettingGet("settings", "autoplay", false))
        CmPlay();
}

void MainDialog::InitListView() {
    list->SetColumns(Columns);
    static_cast<void>(tone.ReadFromFile(CurrentTonePath().c_str())); // at first there is none
    witness.Watch(CurrentTonePath());
    SetupListViewData();
    list->SetFocus();
    list->SetCurrent(0);
    list->BindCommands({.selection = CommandSelection,
                        .doubleClick = CommandListDoubleClick,
                        .rightClick = CommandListRightClick});
    SetToolTip(ControlList, "Tone details (double click to modify)");
}

void MainDialog::DestroyDialog() {
    player.Stop();
    player.SetNotify(nullptr, 0);
    devices.Leave();
    static_cast<void>(tone.WriteToFile(CurrentTonePath().c_str())); // there is nobody left to tell
    witness.Leave();
    list.reset();
    OpenThankYouPageOnce(GetToolkit());
}

void MainDialog::EvStarted() {
    LUserSettingSet("Settings", "FirstRun", true);
}

void MainDialog::LayoutControls(int width, int height) {
    LControlsPeer& controls = GetControls();
    const int barHeight = controls.GetPlace(ControlSmallToolBar).height;
    controls.Place(ControlSmallToolBar, {0, 0, width, barHeight});
    controls.Place(ControlList, {0, barHeight, width, height - barHeight});
}

MainState MainDialog::GetState() const {
    return {.tone = tone, .selected = !list->GetSelection().empty(), .playing = player.IsPlaying()};
}

void MainDialog::EnableControls() {
    EnableMenuItems(GetMenu(), GetState());
    EnableToolBarItems(GetToolBar(), smallToolBar, GetState());
}

void MainDialog::CmHelp() {
    OpenHelpPage(*this, HelpPage::Start);
}

void MainDialog::CmAbout() {
    AboutDlg about;
    about.Open(*this);
}

LWindowGeometry MainDialog::ReadGeometry() {
    LWindowGeometry geometry;
    geometry.width = LUserSettingGet(GeometrySection, "Width", geometry.width);
    geometry.height = LUserSettingGet(GeometrySection, "Height", geometry.height);
    geometry.x = LUserSettingGet(GeometrySection, "X", geometry.x);
    geometry.y = LUserSettingGet(GeometrySection, "Y", geometry.y);
    geometry.maximized = LUserSettingGet(GeometrySection, "Maximized", geometry.maximized);
    return geometry;
}

void MainDialog::WriteGeometry(const LWindowGeometry& geometry) {
    LUserSettingSet(GeometrySection, "Maximized", geometry.maximized);
    LUserSettingSet(GeometrySection, "X", geometry.x);
    LUserSettingSet(GeometrySection, "Y", geometry.y);
    LUserSettingSet(GeometrySection, "Width", geometry.width);
    LUserSettingSet(GeometrySection, "Height", geometry.height);
}
