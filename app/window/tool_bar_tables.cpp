#include "app/window/tool_bar_tables.h"

#include "app/window/command_ids.h"

namespace {

using enum LToolBarItemKind;

constexpr LToolBarItem MainToolBar[] = {
    {Button, CommandPlay, "play", "Play", "Start tone"},
    {Button, CommandStop, "stop", "Stop", "Stop tone"},
    {Separator},
    {Button, CommandSave, "save", "Save", "Saves tone"},
    {Separator},
    {Button, CommandPreferences, "preferences", "Preferences", "Preferences"},
};

constexpr LToolBarItem SmallToolBar[] = {
    {Button, CommandIncrease, "increase", "", "Increase selected tone value"},
    {Button, CommandDecrease, "decrease", "", "Decrease the selected tone value"},
    {Separator},
    {Radio, CommandFirstWaveform + 0, "sine", "", "Sine"},
    {Radio, CommandFirstWaveform + 1, "square", "", "Square"},
    {Radio, CommandFirstWaveform + 2, "triangle", "", "Triangle"},
    {Radio, CommandFirstWaveform + 3, "saw-tooth", "", "Saw tooth"},
    {Radio, CommandFirstWaveform + 4, "impulse", "", "Impulse train"},
    {Radio, CommandWhiteNoise, "white-noise", "", "White noise"},
    {Radio, CommandPinkNoise, "pink-noise", "", "Pink noise"},
    {Radio, CommandLoadList, "tone-list", "", "Load List"},
    {Toggle, CommandStereoToggle, "stereo", "", "Stereo"},
    {Separator},
    {Toggle, CommandFiniteToggle, "finite", "", "Finite duration"},
    {Toggle, CommandLoop, "loop", "", "Loop play"},
    {Radio, CommandSweepLinear, "linear-sweep", "", "Linear sweep"},
    {Radio, CommandSweepLog, "log-sweep", "", "Logarithmic sweep"},
    {Toggle, CommandVariableAmplitude, "variable-amplitude", "", "Variable amplitudes"},
};

} // namespace

std::span<const LToolBarItem> GetMainToolBar() {
    return MainToolBar;
}

std::span<const LToolBarItem> GetSmallToolBar() {
    return SmallToolBar;
}
