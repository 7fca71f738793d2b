#pragma once

#include "app/window/enabling_rules.h"
#include "app/window/playback.h"
#include "app/window/recent_files.h"
#include "app/window/sound_pane.h"
#include "app/window/status_fields.h"
#include "app/window/summary_pane.h"
#include "app/window/tone_files.h"
#include "app/window/tone_lists.h"
#include "app/window/tone_rows.h"
#include "app/window/tone_witness.h"
#include "gui/main_window.h"

/// Where the window's sound goes.
struct MainOutputs {
    LSoundChannelOpener open;
    LOutputRateFinder findRate{};
    std::function<std::vector<std::string>()> listNames = GetOutputNames; ///< called on any thread
};

/// The program's window: it shows the current tone as rows, edits it by commands, plays it, and keeps it from
/// one run to the next. Its parts do the work, each by itself; the window connects them.
class MainDialog : public LMainWindow, private LKeyHandler {
public:
    MainDialog(LToolkit& windowToolkit, int argumentCount, const char* const* arguments, MainOutputs outputs);

    void Command(int command) override;
    void EvDropFiles(const std::vector<std::string>& paths) override;
    /// Among the files that were opened last.
    void KeepForLater(const std::string& path) override { recent.Add(path); }

private:
    // main_dialog.cpp: start, end and what any window has.
    void InitDialog() override;
    void DestroyDialog() override;
    void EvStarted() override;
    void LayoutControls(int width, int height) override;
    void EnableControls() override;
    void CmHelp() override;
    void EvKeyDown(unsigned command) override { ControlUsed(static_cast<int>(command)); }
    LWindowGeometry ReadGeometry() override;
    void WriteGeometry(const LWindowGeometry& geometry) override;
    MainState GetState() const;
    /// The words under the rows, and the room that these leave.
    void ShowSummary();
    // What changes the tone ends in one of these, by which all that shows or plays it follows; where nothing
    // has changed, they do nothing.
    void Restart(bool changed);               ///< of values
    void RelistandStart(bool changed = true); ///< of what rows it has
    /// Before another tone takes this one's place: false where a list would be lost that the user wants.
    bool MayReplaceTone();
    /// Makes a change that can be undone; without effect it is none.
    void Record(const std::function<void()>& change, int series = ToneHistory::NoSeries);
    void Restore(const std::optional<ToneState>& past);
    /// In the title.
    void ShowDocument();
    void RememberDocument();
    void ShowRecent();

    // open_files.cpp: documents from outside.
    void CmLoadFiles(const std::vector<std::string>& paths) override;
    void EvRunArguments(const char* const* arguments, int count) override;
    void LoadDocuments(const std::vector<std::string>& paths);
    void OpenDropped(const std::vector<std::string>& paths);
    void OpenRecent(std::size_t place);
    void OpenFromUser(const std::string& path);

    // main_commands.cpp: one table of what each command does, and what concerns more than one of the parts.
    struct Action;
    static const Action Actions[];
    void RunCommand(int command);
    void ReplaceTone(const SonvireData& changed);
    void CmRepeatPlay();
    void CmChooseDevice();
    void CmToggle(int toggle, int on, int off);
    void CmToneEditValue();
    void CmListViewRightClickMenu();
    void CmSoundMenu();
    /// As a command of the View menu has changed it.
    void ShowSound(int command);
    void CmSave();
    void CmLoadList();

    ToneState state;
    SonvireData& tone = state.tone;
    ToneHistory history;
    bool recording = false;
    std::string shownPath; ///< of the document
    RecentFiles recent;
    LToolBar smallToolBar;
    StatusFields status;
    DeviceList devices;
    Playback playback;
    ToneWitness witness;
    ToneRows rows;
    SummaryPane summary;
    SoundPane sound;
    LRect content; ///< as it was laid out last
    ToneFiles files;
    ToneLists lists;
};
