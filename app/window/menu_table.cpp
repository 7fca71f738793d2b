#include "app/window/command_ids.h"
#include "app/window/window_tables.h"
#include "tone/waveforms.h"

#include <vector>

namespace {

constexpr LMenuEntry FileAndEditMenu[] = {
    {-1, "File"},
    {CommandLoadTone, "Load Tone..."},
    {-1, "Open Recent"},
    {CommandOpenRecent, "1"},
    {CommandOpenRecent + 1, "2"},
    {CommandOpenRecent + 2, "3"},
    {CommandOpenRecent + 3, "4"},
    {CommandOpenRecent + 4, "5"},
    {CommandOpenRecent + 5, "6"},
    {CommandOpenRecent + 6, "7"},
    {CommandOpenRecent + 7, "8"},
    {CommandOpenRecent + 8, "9"},
    {CommandOpenRecent + 9, "10"},
    {-1},
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
    {-1, "Edit"},
    {CommandUndo, "Undo"},
    {CommandRedo, "Redo"},
    {-1},
};

constexpr LMenuEntry SoundChoices[] = {
    {CommandViewBoth, "Both"},
    {CommandViewWave, "Wave Only"},
    {CommandViewSpectrum, "Spectrum Only"},
    {0},
    {CommandViewPeriods, "A Few Periods"},
    {CommandViewWhole, "Whole Wave"},
    {0},
    {CommandViewLog, "Logarithmic Frequency"},
    {CommandViewLinear, "Linear Frequency"},
    {0},
    {CommandResetZoom, "Reset Zoom"},
    {CommandCopyPicture, "Copy Picture"},
    {CommandCopyCsv, "Copy CSV"},
};

constexpr LMenuEntry StartOfViewMenu[] = {
    {-1, "View"},
    {-CommandViewSound, "Wave and Spectrum"},
    {0},
};

constexpr LMenuEntry StartOfToneMenu[] = {
    {-1},
    {-1, "Tone"},
    {CommandIncrease, "Increase Value"},
    {CommandDecrease, "Decrease Value"},
    {CommandEditValue, "Edit Value"},
};

constexpr LMenuEntry ToneChoices[] = {
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

/// What the Tone menu and the list's own menu have in common: the choices, then the waveforms but the list.
std::vector<LMenuEntry> GetToneEntries() {
    std::vector<LMenuEntry> entries(std::begin(ToneChoices), std::end(ToneChoices));
    const std::span<const ToneWaveformRow> waveforms = GetWaveforms();
    for (int code = 0; code < static_cast<int>(waveforms.size()); ++code)
        if (code != ToneFromList)
            entries.push_back({WaveformCommand(code), waveforms[static_cast<std::size_t>(code)].szToneName});
    return entries;
}

std::vector<LMenuEntry> Join(std::initializer_list<std::span<const LMenuEntry>> parts) {
    std::vector<LMenuEntry> all;
    for (const std::span<const LMenuEntry> part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace

std::span<const LMenuEntry> GetMainMenu() {
    static const std::vector<LMenuEntry> menu = Join(
        {FileAndEditMenu, StartOfViewMenu, SoundChoices, StartOfToneMenu, GetToneEntries(), RestOfMainMenu});
    return menu;
}

std::span<const LMenuEntry> GetListMenu() {
    static const std::vector<LMenuEntry> menu = Join({ListValues, GetToneEntries()});
    return menu;
}

std::span<const LMenuEntry> GetSoundMenu() {
    return SoundChoices;
}
