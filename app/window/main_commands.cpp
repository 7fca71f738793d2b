#include "app/desktop/help_pages.h"
#include "app/desktop/update_check.h"
#include "app/desktop/web_links.h"
#include "app/window/command_ids.h"
#include "app/window/main_dialog.h"
#include "app/window/set_dlg.h"
#include "app/window/tone_commands.h"

void MainDialog::Command(int command) {
    if (ChangeTone(tone, command)) {
        RelistandStart();
        return;
    }
    if (RunValueCommand(command) || RunFileCommand(command) || RunStatusCommand(command) ||
        OpenWebLink(*this, command))
        return;
    switch (command) {
    case CommandPlay:
        CmPlay();
        break;
    case CommandStop:
        player.Stop();
        break;
    case CommandSelection:
        EnableControls();
        break;
    case CommandFiniteToggle:
        Command(smallToolBar.GetState(CommandFiniteToggle) ? CommandSpecifiedDuration : CommandContinuous);
        break;
    case CommandStereoToggle:
        Command(smallToolBar.GetState(CommandStereoToggle) ? CommandStereo : CommandMono);
        break;
    case CommandLoop:
        CmRepeatPlay();
        break;
    case CommandPreferences:
        CmSettings();
        break;
    case CommandCloseWindow:
        Close(0);
        break;
    case CommandAbout:
        CmAbout();
        break;
    case CommandCheckForUpdates:
        LAboutCheckForVersionUpdate(*this);
        break;
    case CommandHelpKeys:
        OpenHelpPage(*this, HelpPage::Keys);
        break;
    default:
        break;
    }
}

bool MainDialog::RunValueCommand(int command) {
    switch (command) {
    case CommandIncrease:
        if (IncreaseListViewData(1))
            Restart();
        return true;
    case CommandDecrease:
        if (DecreaseListViewData(1))
            Restart();
        return true;
    case CommandIncreaseLarge:
        if (IncreaseListViewDataLarge())
            Restart();
        return true;
    case CommandDecreaseLarge:
        if (DecreaseListViewDataLarge())
            Restart();
        return true;
    case CommandEditValue:
    case CommandListDoubleClick:
        CmToneEditValue();
        return true;
    case CommandListRightClick:
        CmListViewRightClickMenu();
        return true;
    default:
        return false;
    }
}

bool MainDialog::RunFileCommand(int command) {
    switch (command) {
    case CommandLoadTone:
        CmLoadTDF();
        return true;
    case CommandSave:
        CmSave();
        return true;
    case CommandSaveAsTone:
        CmSaveAsTDF();
        return true;
    case CommandSaveAsWav:
        CmSaveAsWav();
        return true;
    case CommandNewList:
        CmCreateList();
        return true;
    case CommandLoadList:
        CmLoadList();
        return true;
    case CommandSaveList:
        CmSaveList();
        return true;
    default:
        return false;
    }
}

bool MainDialog::RunStatusCommand(int command) {
    switch (command) {
    case ControlDevice:
        status.StoreDevice();
        Restart();
        return true;
    case ControlVolume:
        player.SetPlayVolume(status.StoreVolume());
        return true;
    default:
        return false;
    }
}

void MainDialog::CmSettings() {
    if (OpenSettingsDialog(*this))
        Restart();
}
