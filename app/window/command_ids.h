#pragma once

#include "gui/standard_commands.h"

/// The commands of the main window; each is also the id of the control, menu entry or tool bar item that
/// sends it.
enum MainCommand : int {
    CommandPlay = 101,
    CommandStop = 102,
    CommandSelection = 110, ///< other rows of the list are selected
    CommandFiniteToggle = 117,
    CommandLoop = 118,
    CommandStereoToggle = 122,

    CommandSave = 1110,
    CommandLoadTone = 1111,
    CommandSaveAsTone = 1112,
    CommandNewList = 1113,
    CommandLoadListMenu = 1114, ///< does what `CommandLoadList` does
    CommandSaveList = 1115,
    CommandSaveAsWav = 1116,
    CommandUndo = 1120,
    CommandRedo = 1121,
    CommandOpenRecent = 1130, ///< plus the place in the list of files opened last, 0..9
    CommandLastRecent = 1139,

    CommandViewSound = 1150, ///< opens or shuts the pane that shows the wave and the spectrum
    CommandViewBoth = 1151,
    CommandViewWave = 1152,
    CommandViewSpectrum = 1153,
    CommandViewPeriods = 1154,
    CommandViewWhole = 1155,
    CommandViewLog = 1156,
    CommandViewLinear = 1157,
    CommandResetZoom = 1158,
    CommandCopyPicture = 1159,
    CommandCopyCsv = 1160,

    CommandPreferences = 1401,
    CommandCloseWindow = 1402,
    CommandAbout = 1403,
    CommandHelpKeys = 1404,

    CommandIncrease = 2101,
    CommandDecrease = 2102,
    CommandEditValue = 2103,
    CommandContinuous = 2104,
    CommandSpecifiedDuration = 2105,
    CommandSweepLinear = 2106,
    CommandSweepLog = 2107,
    CommandMono = 2108,
    CommandStereo = 2109,
    CommandVariableAmplitude = 2110,
    CommandFirstWaveform = 2111, ///< plus the waveform's code, as `WaveformCommand` does
    CommandLoadList = 2118,      ///< in the tool bar, where it also stands for the waveform of a list

    CommandNumberOfTones = 3000, ///< plus the number, 1..16
    CommandOneTone = 3001,
    CommandSixteenTones = 3016,

    CommandIncreaseLarge = 5101,
    CommandDecreaseLarge = 5102,
    CommandListDoubleClick = 6111,
    CommandListRightClick = 6112,

    // 9021..9039 are the standard links of the Help menu.
    CommandCheckForUpdates = 9021,
    CommandWebSite = 9022,
    CommandReportProblem = 9023,
};

/// The controls of the main window that send no command of another name.
enum MainControl : int {
    ControlList = 110,
    ControlSmallToolBar = 200,
    ControlStatusText = 301,
    ControlPosition = 302,
    ControlLevels = 303,
    ControlDevice = 304,
    ControlVolume = 305,
    ControlHeadline = 306,
    ControlToneKind = 307,
    ControlToneLevel = 308,
    ControlKeyHint = 309,
    ControlMute = 310,
    ControlVolumeText = 311,
    ControlFormat = 312,
    ControlSound = 313,
};

/// Of every waveform; for the list, `CommandLoadList`.
constexpr int WaveformCommand(int code) {
    return CommandFirstWaveform + code;
}
