#pragma once

#include "app/window/device_list.h"
#include "app/window/enabling_rules.h"
#include "app/window/status_fields.h"
#include "app/window/tone_witness.h"
#include "gui/list_view.h"
#include "gui/main_window.h"
#include "play/sound_player.h"
#include "tone/tone_data.h"

#include <optional>

/// Where the window's sound goes.
struct MainOutputs {
    LSoundChannelOpener open;
    std::function<std::vector<std::string>()> listNames = GetOutputNames; ///< called on any thread
};

/// The program's window: it shows the current tone as rows, edits it by commands, plays it, and keeps it from
/// one run to the next.
class MainDialog : public LMainWindow, private LKeyHandler, private LSoundPlayerNotify {
public:
    MainDialog(LToolkit& windowToolkit, int argumentCount, const char* const* arguments, MainOutputs outputs);

    void Command(int command) override;
    void EvDropFiles(const std::vector<std::string>& paths) override;

private:
    // main_dialog.cpp: start, end and what any window has.
    void InitDialog() override;
    void DestroyDialog() override;
    void EvStarted() override;
    void LayoutControls(int width, int height) override;
    void EnableControls() override;
    void CmHelp() override;
    void CmAbout();
    void EvKeyDown(unsigned command) override { ControlUsed(static_cast<int>(command)); }
    LWindowGeometry ReadGeometry() override;
    void WriteGeometry(const LWindowGeometry& geometry) override;
    void InitListView();
    MainState GetState() const;

    // main_commands.cpp
    bool RunValueCommand(int command);
    bool RunFileCommand(int command);
    bool RunStatusCommand(int command);
    void CmSettings();

    // list_rows.cpp: the rows show the tone, and edit its items.
    void SetupListViewData();
    void InsertListViewItem(unsigned int item);
    void InsertListRows(unsigned int item);
    void UpdateListViewItem(unsigned int item, int row);
    // Each selected row's item by `count` steps, or by a large one; false where no row is selected.
    bool IncreaseListViewData(int count);
    bool DecreaseListViewData(int count);
    bool IncreaseListViewDataLarge();
    bool DecreaseListViewDataLarge();
    bool StepSelectedItems(const std::function<void(unsigned int)>& step);
    bool ChangeListViewData();
    void CmToneEditValue();
    void CmListViewRightClickMenu();

    // playback.cpp
    void CmPlay();
    void CmRepeatPlay();
    /// Plays the tone as it is now, where it was playing.
    void Restart();
    /// After every change of what rows the tone has.
    void RelistandStart();
    void TakeLength();
    void ReportLostOutput();
    LSoundPlayDevice FindDevice();
    void spntfPlay(long id) override;
    void spntfStop(long id) override;
    void spntfTime(LSoundTime time, long id) override;
    void spntfLevel(const LDBMC& levels, long id) override;

    // open_files.cpp: documents from outside.
    void CmLoadFile(const char* path) override;
    void EvRunArguments(const char* const* arguments, int count) override;
    void OpenFromUser(const std::string& path);
    /// For the next chooser of a tone file.
    static void RememberFile(const std::string& path);

    // file_commands.cpp
    void CmLoadTDF();
    void CmSave();
    void CmSaveAsTDF();
    void CmSaveAsWav();
    void CmSaveTDF(const std::string& path);
    void CmSaveWave(const std::string& path);

    // list_commands.cpp
    void CmCreateList();
    void CmEditList(const std::string& path);
    void CmLoadList();
    void CmSaveList();
    bool EditList(const std::string& path);
    bool CopyList(const std::string& list, const std::string& path);

    LToolBar smallToolBar;
    LSoundPlayer player;
    SonvireData tone;
    ToneWitness witness;
    std::unique_ptr<LListView> list;
    StatusFields status;
    DeviceList devices;
    std::string deviceName; ///< what `device` was looked up for
    LSoundPlayDevice device;
};
