#include "app/window/menu_table.h"

#include "app/window/command_ids.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

/// The tables behind one another.
template <std::size_t... Sizes>
constexpr auto Join(const LMenuEntry (&... parts)[Sizes]) {
    std::array<LMenuEntry, (Sizes + ...)> all{};
    auto next = all.begin();
    ((next = std::copy(std::begin(parts), std::end(parts), next)), ...);
    return all;
}

constexpr LMenuEntry FileAndToneMenu[] = {
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
};

/// What the Tone menu and the list's own menu have in common.
constexpr LMenuEntry ToneChoices[] = {
    {0},
    {-1, "Number of Tones"},
    {3001, "1"},
    {3002, "2"},
    {3003, "3"},
    {3004, "4"},
    {3005, "5"},
    {3006, "6"},
    {3007, "7"},
    {3008, "8"},
    {3009, "9"},
    {3010, "10"},
    {3011, "11"},
    {3012, "12"},
    {3013, "13"},
    {3014, "14"},
    {3015, "15"},
    {3016, "16"},
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
    {CommandFirstWaveform + 0, "Sine"},
    {CommandFirstWaveform + 1, "Square"},
    {CommandFirstWaveform + 2, "Triangular"},
    {CommandFirstWaveform + 3, "Saw Tooth"},
    {CommandFirstWaveform + 4, "Impulse"},
    {CommandWhiteNoise, "White Noise"},
    {CommandPinkNoise, "Pink Noise"},
};

constexpr LMenuEntry RestOfMainMenu[] = {
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
};

constexpr LMenuEntry ListValues[] = {
    {CommandIncrease, "Increase Value"},
    {CommandDecrease, "Decrease Value"},
    {CommandEditValue, "Edit Value..."},
};

constexpr auto MainMenu = Join(FileAndToneMenu, ToneChoices, RestOfMainMenu);
constexpr auto ListMenu = Join(ListValues, ToneChoices);

} // namespace

std::span<const LMenuEntry> GetMainMenu() {
    return MainMenu;
}

std::span<const LMenuEntry> GetListMenu() {
    return ListMenu;
}
