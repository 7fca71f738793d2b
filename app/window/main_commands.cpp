#include "app/desktop/about_dlg.h"
#include "app/desktop/help_pages.h"
#include "app/desktop/update_check.h"
#include "app/desktop/web_links.h"
#include "app/window/command_ids.h"
#include "app/window/main_dialog.h"
#include "app/window/set_dlg.h"
#include "app/window/tone_commands.h"
#include "app/window/window_tables.h"

#include <algorithm>
#include <iterator>

struct MainDialog::Action {
    int command;
    void (*run)(MainDialog& window);
};

/// What a command does, but for those that only change the tone, and for links.
const MainDialog::Action MainDialog::Actions[] = {
    {CommandPlay, [](MainDialog& window) { window.playback.CmPlay(); }},
    {CommandStop, [](MainDialog& window) { window.playback.Stop(); }},
    {CommandLoop, [](MainDialog& window) { window.CmRepeatPlay(); }},
    {CommandUndo, [](MainDialog& window) { window.Restore(window.history.Undo(window.state)); }},
    {CommandRedo, [](MainDialog& window) { window.Restore(window.history.Redo(window.state)); }},
    {ControlDevice, [](MainDialog& window) { window.CmChooseDevice(); }},
    {ControlVolume, [](MainDialog& window) { window.playback.SetVolume(window.status.StoreVolume()); }},
    {ControlMute, [](MainDialog& window) { window.playback.SetVolume(window.status.ToggleMute()); }},

    {CommandSelection, [](MainDialog& window) { window.EnableControls(); }},
    {CommandIncrease, [](MainDialog& window) { window.Restart(window.rows.IncreaseListViewData(1)); }},
    {CommandDecrease, [](MainDialog& window) { window.Restart(window.rows.DecreaseListViewData(1)); }},
    {CommandIncreaseLarge,
     [](MainDialog& window) { window.Restart(window.rows.IncreaseListViewDataLarge()); }},
    {CommandDecreaseLarge,
     [](MainDialog& window) { window.Restart(window.rows.DecreaseListViewDataLarge()); }},
    {CommandEditValue, [](MainDialog& window) { window.CmToneEditValue(); }},
    {CommandListDoubleClick, [](MainDialog& window) { window.CmToneEditValue(); }},
    {CommandListRightClick, [](MainDialog& window) { window.CmListViewRightClickMenu(); }},
    {ControlSound, [](MainDialog& window) { window.CmSoundMenu(); }},
    {CommandFiniteToggle,
     [](MainDialog& window) {
         window.CmToggle(CommandFiniteToggle, CommandSpecifiedDuration, CommandContinuous);
     }},
    {CommandStereoToggle,
     [](MainDialog& window) { window.CmToggle(CommandStereoToggle, CommandStereo, CommandMono); }},

    {CommandLoadTone,
     [](MainDialog& window) { window.RelistandStart(window.MayReplaceTone() && window.files.CmLoadTDF()); }},
    {CommandSave, [](MainDialog& window) { window.CmSave(); }},
    {CommandSaveAsTone, [](MainDialog& window) { window.files.CmSaveAsTDF(); }},
    {CommandSaveAsWav, [](MainDialog& window) { window.files.CmSaveAsWav(); }},
    {CommandNewList,
     [](MainDialog& window) {
         window.RelistandStart(window.MayReplaceTone() && window.lists.CmCreateList());
     }},
    {CommandLoadListMenu, [](MainDialog& window) { window.CmLoadList(); }},
    {CommandLoadList, [](MainDialog& window) { window.CmLoadList(); }},
    {CommandSaveList, [](MainDialog& window) { window.RelistandStart(window.lists.CmSaveList()); }},

    {CommandPreferences, [](MainDialog& window) { window.RelistandStart(OpenSettingsDialog(window)); }},
    {CommandCloseWindow, [](MainDialog& window) { window.Close(0); }},
    {CommandAbout, [](MainDialog& window) { AboutDlg().RunModal(window); }},
    {CommandCheckForUpdates, [](MainDialog& window) { LAboutCheckForVersionUpdate(window); }},
    {CommandHelpKeys, [](MainDialog& window) { OpenHelpPage(window, HelpPage::Keys); }},
};

/// The steps of one key or button are undone at once.
int GetSeries(int command) {
    constexpr int Steps[] = {CommandIncrease, CommandDecrease, CommandIncreaseLarge, CommandDecreaseLarge};
    return std::find(std::begin(Steps), std::end(Steps), command) != std::end(Steps) ? command
                                                                                     : ToneHistory::NoSeries;
}

void MainDialog::Command(int command) {
    if (command == CommandUndo || command == CommandRedo)
        RunCommand(command);
    else
        Record([this, command] { RunCommand(command); }, GetSeries(command));
}

void MainDialog::RunCommand(int command) {
    if (SonvireData changed = tone; ChangeTone(changed, command)) {
        ReplaceTone(changed);
        return;
    }
    if (command >= CommandOpenRecent && command <= CommandLastRecent) {
        OpenRecent(static_cast<std::size_t>(command - CommandOpenRecent));
        return;
    }
    if (sound.Change(command)) {
        ShowSound(command);
        return;
    }
    const auto* action = std::find_if(std::begin(Actions), std::end(Actions),
                                      [command](const Action& each) { return each.command == command; });
    if (action != std::end(Actions))
        action->run(*this);
    else
        OpenWebLink(*this, command);
}

void MainDialog::ReplaceTone(const SonvireData& changed) {
    if (changed.IsList() == tone.IsList() || MayReplaceTone()) {
        tone = changed;
        RelistandStart();
    } else {
        EnableControls(); // the item was pressed, and the tone stays the list
    }
}

void MainDialog::CmRepeatPlay() {
    tone.flags |= ToneFlagDuration; // a loop has an end to go back from
    tone.repeat = tone.repeat == 0 ? 1 : 0;
    RelistandStart();
}

void MainDialog::CmChooseDevice() {
    status.StoreDevice();
    playback.Restart();
}

void MainDialog::CmToggle(int toggle, int on, int off) {
    RunCommand(smallToolBar.GetState(toggle) ? on : off);
}

void MainDialog::CmToneEditValue() {
    if (tone.IsList())
        RelistandStart(lists.CmEditList(tone.GetListPath()));
    else
        Restart(rows.ChangeListViewData());
}

void MainDialog::CmListViewRightClickMenu() {
    LMenu menu(rows.CreatePopupMenu(), GetListMenu());
    EnableMenuItems(menu, GetState());
    if (const int chosen = menu.Choose(); chosen != 0)
        RunCommand(chosen);
}

void MainDialog::ShowSound(int command) {
    LayoutControls(content.width, content.height);
    EnableControls();
    if (command == CommandViewSound && sound.GivesWay())
        ShowPassing("The wave and the spectrum stand below the list once the window is larger");
    else if (command == CommandCopyPicture || command == CommandCopyCsv)
        ShowPassing("Copied"); // of which nothing else tells
}

void MainDialog::CmSoundMenu() {
    LMenu menu(sound.CreatePopupMenu(), GetSoundMenu());
    sound.MarkMenuItems(menu);
    if (const int chosen = menu.Choose(); chosen != 0)
        RunCommand(chosen);
}

void MainDialog::CmSave() {
    if (tone.IsList())
        RelistandStart(lists.CmSaveList());
    else
        files.CmSave();
}

void MainDialog::CmLoadList() {
    if (MayReplaceTone() && lists.CmLoadList())
        RelistandStart();
    else
        EnableControls(); // the item was pressed, and the tone is no list for that
}
