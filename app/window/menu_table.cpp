#include "app/window/waveforms.h"
#include "app/window/window_tables.h"

namespace {

constexpr auto FileAndToneMenu = std::to_array<LMenuEntry>({
    {-1, "File"},
    {CommandLoadTone, "Load Tone..."},
    {CommandSaveAsTone, "Save As Tone..."},
    {0},
    {CommandNewList, "New List"},
    {CommandLoadListMenu, "Load List..."},
    {CommandSaveList, "Save List..."},
    {0},
    {CommandSaveAsWav, "Save As Wav..."},
    {CommandCloseWindow, "Close Window"},
    {LCommandQuit, "Quit"},
    {-1},
    {-1, "Tone"},
    {CommandIncrease, "Increase Value"},
    {CommandDecrease, "Decrease Value"},
    {CommandEditValue, "Edit Value"},
});

/// What the Tone menu and the list's own menu have in common.
constexpr auto ToneChoices = std::to_array<LMenuEntry>({
    {0},
    {-1, "Number of Tones"},
    {CommandNumberOfTones + 1, "1"},
    {CommandNumberOfTones + 2, "2"},
    {CommandNumberOfTones + 3, "3"},
    {CommandNumberOfTones + 4, "4"},
    {CommandNumberOfTones + 5, "5"},
    {CommandNumberOfTones + 6, "6"},
    {CommandNumberOfTones + 7, "7"},
    {CommandNumberOfTones + 8, "8"},
    {CommandNumberOfTones + 9, "9"},
    {CommandNumberOfTones + 10, "10"},
    {CommandNumberOfTones + 11, "11"},
    {CommandNumberOfTones + 12, "12"},
    {CommandNumberOfTones + 13, "13"},
    {CommandNumberOfTones + 14, "14"},
    {CommandNumberOfTones + 15, "15"},
    {CommandNumberOfTones + 16, "16"},
    {-1},
    {0},
    {CommandContinuous, "Constant (Continuous)"},
    {CommandSpecifiedDuration, "Constant (Specified Duration)"},
    {CommandSweepLinear, "Sweep (Linear)"},
    {CommandSweepLog, "Sweep (Log)"},
    {0},
    {CommandMono, "Mono"},
    {CommandStereo, "Stereo"},
    {0},
    {-CommandVariableAmplitude, "Variable Amplitude"},
    {0},
});

constexpr auto WaveformEntries = [] {
    std::array<LMenuEntry, WaveformsInMenus> entries{};
    auto next = entries.begin();
    for (const WaveformRow& row : Waveforms)
        if (row.kind != WaveformKind::List)
            *next++ = {row.GetCommand(), row.name};
    return entries;
}();

constexpr auto RestOfMainMenu = std::to_array<LMenuEntry>({
    {-1},
    {-1, "Playback"},
    {CommandPlay, "Play"},
    {CommandStop, "Stop"},
    {-CommandLoop, "Loop Play"},
    {-1},
    // What every program has, where people look for it.
    {-1, "Settings"},
    {CommandPreferences, "Preferences"},
    {-1},
    {-1, "Help"},
    {LCommandHelp, "Sonvire Help"},
    {CommandHelpKeys, "Keys"},
    {0},
    {CommandWebSite, "Sonvire on the Web"},
    {CommandReportProblem, "Report a Problem"},
    {CommandCheckForUpdates, "Check for Updates..."},
    {0},
    {CommandAbout, "About Sonvire"},
    {-1},
});

constexpr auto ListValues = std::to_array<LMenuEntry>({
    {CommandIncrease, "Increase Value"},
    {CommandDecrease, "Decrease Value"},
    {CommandEditValue, "Edit Value..."},
});

constexpr auto MainMenu = JoinTables(FileAndToneMenu, ToneChoices, WaveformEntries, RestOfMainMenu);
constexpr auto ListMenu = JoinTables(ListValues, ToneChoices, WaveformEntries);

} // namespace

std::span<const LMenuEntry> GetMainMenu() {
    return MainMenu;
}

std::span<const LMenuEntry> GetListMenu() {
    return ListMenu;
}
