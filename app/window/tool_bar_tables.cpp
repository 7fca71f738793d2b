#include "app/window/command_ids.h"
#include "app/window/window_tables.h"
#include "tone/tone_data.h"

namespace {

using enum LToolBarItemKind;

constexpr LToolBarItem MainToolBar[] = {
    {Lamp, CommandPlay, "play", "Play", "Start tone"},
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
    {Radio, WaveformCommand(ToneSine), "sine", "", "Sine"},
    {Radio, WaveformCommand(ToneSquare), "square", "", "Square"},
    {Radio, WaveformCommand(ToneTriangular), "triangle", "", "Triangle"},
    {Radio, WaveformCommand(ToneSawTooth), "saw-tooth", "", "Saw tooth"},
    {Radio, WaveformCommand(ToneImpulse), "impulse", "", "Impulse train"},
    {Radio, WaveformCommand(ToneWhiteNoise), "white-noise", "", "White noise"},
    {Radio, WaveformCommand(TonePinkNoise), "pink-noise", "", "Pink noise"},
    {Radio, WaveformCommand(ToneFromList), "tone-list", "", "Load List"},
    {Toggle, CommandStereoToggle, "stereo", "", "Stereo"},
    {Separator},
    {Toggle, CommandFiniteToggle, "finite", "", "Finite duration"},
    {Toggle, CommandLoop, "loop", "", "Loop play"},
    {Radio, CommandSweepLinear, "linear-sweep", "", "Linear sweep"},
    {Radio, CommandSweepLog, "log-sweep", "", "Logarithmic sweep"},
    {Toggle, CommandVariableAmplitude, "variable-amplitude", "", "Variable amplitudes"},
};
static_assert(WaveformCommand(ToneFromList) == CommandLoadList);

} // namespace

std::span<const LToolBarItem> GetMainToolBar() {
    return MainToolBar;
}

std::span<const LToolBarItem> GetSmallToolBar() {
    return SmallToolBar;
}
