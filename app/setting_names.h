#pragma once

#include "gui/main_window_peer.h"
#include "play/play_device.h"
#include "sys/desktop/settings.h"

/// A number or a switch that is kept from one run to the next, and what it is where nothing is stored.
template <class Value>
struct ValueSetting {
    const char* section;
    const char* key;
    Value fallback;

    Value Get() const { return LUserSettingGet(section, key, fallback); }
    void Set(Value value) const { LUserSettingSet(section, key, value); }
    /// As it was typed.
    void SetText(const std::string& text) const { LUserSettingSetString(section, key, text); }
};

/// The same for a text.
struct TextSetting {
    const char* section;
    const char* key;
    const char* fallback = "";

    std::string Get() const { return LUserSettingGetText(section, key, fallback); }
    void Set(const std::string& text) const { LUserSettingSetString(section, key, text); }
};

/// Everything that the window keeps in the settings. Names are as old as the program, hence their variety.
namespace Setting {

inline constexpr ValueSetting<bool> Autoplay{"settings", "autoplay", false};
inline constexpr TextSetting OutDevice{"Settings", "OutDevice", LSoundPlayDevice::DefaultName};
inline constexpr ValueSetting<int> PlayVolume{"settings", "playvolume", 0}; ///< dB
inline constexpr ValueSetting<int> UnmutedVolume{"settings", "unmuted playvolume",
                                                 0}; ///< before it was muted

/// At which files are saved in high quality; 0 is the standard quality.
inline constexpr ValueSetting<int> HighRate{"settings", "high resolution rate", 0};

// By how much a step changes a frequency. What it is depends on the first one; the last two are what the
// dialog shows of both.
inline constexpr ValueSetting<bool> StepsBySemitone{"settings", "semitone increment", true};
inline constexpr ValueSetting<int> StepSemitones{"settings", "frequency increment step", 1};
inline constexpr TextSetting StepHz{"settings", "frequency increment step", "1.0"};
inline constexpr ValueSetting<int> ShownSemitones{"settings", "semitoneval", 1};
inline constexpr TextSetting ShownHz{"settings", "frequencyval", "1.0"};

// Whether the wave and the spectrum are shown, and how.
inline constexpr ValueSetting<bool> SoundOpen{"view", "sound", true};
inline constexpr ValueSetting<bool> SoundWave{"view", "wave", true};
inline constexpr ValueSetting<bool> SoundSpectrum{"view", "spectrum", true};
inline constexpr ValueSetting<bool> SoundWhole{"view", "whole wave", false};
inline constexpr ValueSetting<bool> SoundLinear{"view", "linear frequency", false};

// The last tone file and its folder.
inline constexpr TextSetting File{"settings", "file"};
inline constexpr TextSetting FileFolder{"settings", "filedir"};

// The file that the current tone is of, and the files that were opened last: the digits of the keys that hold
// them, the newest first.
inline constexpr TextSetting Document{"settings", "document"};
inline constexpr TextSetting RecentOrder{"recent", "order"};
inline std::string GetRecentFile(char digit) {
    return LUserSettingGetText("recent", std::string("file") + digit);
}
inline void SetRecentFile(char digit, const std::string& path) {
    LUserSettingSetString("recent", std::string("file") + digit, path);
}

// The list that was edited last, and where the choosers of lists and of their entries were.
inline constexpr TextSetting EditList{"tonelist", "editlist"};
inline constexpr TextSetting ListReadFolder{"tonelist", "readfolder"};
inline constexpr TextSetting ListSaveFolder{"tonelist", "savefolder"};
inline constexpr TextSetting EntryReadFolder{"tonelist", "read folder"};

inline constexpr ValueSetting<bool> FirstRun{"Settings", "FirstRun", false};
inline constexpr ValueSetting<bool> Thanks{"Settings", "Thanks", false};

inline constexpr ValueSetting<int> WindowX{"MainWindow", "X", LWindowGeometry{}.x};
inline constexpr ValueSetting<int> WindowY{"MainWindow", "Y", LWindowGeometry{}.y};
inline constexpr ValueSetting<int> WindowWidth{"MainWindow", "Width", LWindowGeometry{}.width};
inline constexpr ValueSetting<int> WindowHeight{"MainWindow", "Height", LWindowGeometry{}.height};
inline constexpr ValueSetting<bool> WindowMaximized{"MainWindow", "Maximized", LWindowGeometry{}.maximized};

} // namespace Setting
