#include "app/window/waveforms.h"
#include "app/window/window_tables.h"

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

constexpr auto ValueItems = std::to_array<LToolBarItem>({
    {Button, CommandIncrease, "increase", "", "Increase selected tone value"},
    {Button, CommandDecrease, "decrease", "", "Decrease the selected tone value"},
    {Separator},
});

constexpr auto WaveformItems = [] {
    std::array<LToolBarItem, std::size(Waveforms)> items{};
    std::transform(std::begin(Waveforms), std::end(Waveforms), items.begin(), [](const WaveformRow& row) {
        return LToolBarItem{Radio, row.GetCommand(), row.icon, "", row.toolTip};
    });
    return items;
}();

constexpr auto ModeItems = std::to_array<LToolBarItem>({
    {Toggle, CommandStereoToggle, "stereo", "", "Stereo"},
    {Separator},
    {Toggle, CommandFiniteToggle, "finite", "", "Finite duration"},
    {Toggle, CommandLoop, "loop", "", "Loop play"},
    {Radio, CommandSweepLinear, "linear-sweep", "", "Linear sweep"},
    {Radio, CommandSweepLog, "log-sweep", "", "Logarithmic sweep"},
    {Toggle, CommandVariableAmplitude, "variable-amplitude", "", "Variable amplitudes"},
});

constexpr auto SmallToolBar = JoinTables(ValueItems, WaveformItems, ModeItems);

} // namespace

std::span<const LToolBarItem> GetMainToolBar() {
    return MainToolBar;
}

std::span<const LToolBarItem> GetSmallToolBar() {
    return SmallToolBar;
}
