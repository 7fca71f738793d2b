#include "app/window/enabling_rules.h"

#include "app/desktop/web_links.h"
#include "app/window/command_ids.h"
#include "app/window/tone_commands.h"
#include "tone/waveforms.h"

namespace {

int GetLastWaveform() {
    return WaveformCommand(static_cast<int>(GetWaveforms().size()) - 1);
}

/// What noise and lists lack is not offered for them.
void EnableForPeriodicTone(LMenu& menu, const MainState& state) {
    menu.EnableRange(CommandOneTone, CommandSixteenTones, true);
    menu.EnableRange(CommandContinuous, CommandVariableAmplitude, true);
    menu.Enable(CommandSaveList, false);
    menu.EnableRange(CommandIncrease, CommandEditValue, state.selected);
}

/// The duration of a noise is a value that can be edited, that of a list follows from the list.
bool HasEditableDuration(const SonvireData& tone) {
    return tone.HasFlag(ToneFlagDuration) && !tone.IsList();
}

void EnableForNoiseOrList(LMenu& menu, const MainState& state) {
    menu.EnableRange(CommandOneTone, CommandSixteenTones, false);
    menu.Enable(CommandSaveList, true);
    for (const int command : {CommandSweepLinear, CommandSweepLog, CommandStereo, CommandVariableAmplitude})
        menu.Enable(command, false);
    if (!HasEditableDuration(state.tone))
        menu.EnableRange(CommandIncrease, CommandEditValue, false);
}

void MarkMenuItems(LMenu& menu, const SonvireData& tone) {
    const int tones = tone.HasComponents() ? static_cast<int>(tone.GetToneCount()) : 1;
    menu.SetRadio(CommandOneTone, CommandSixteenTones, CommandNumberOfTones + tones);
    menu.SetRadio(CommandContinuous, CommandSweepLog, GetModeCommand(tone));
    menu.SetRadio(CommandMono, CommandStereo, tone.HasFlag(ToneFlagStereo) ? CommandStereo : CommandMono);
    menu.SetRadio(CommandFirstWaveform, GetLastWaveform(), WaveformCommand(tone.waveform));
    menu.SetCheck(CommandVariableAmplitude, tone.HasFlag(ToneFlagVariableAmplitude));
    menu.SetCheck(CommandLoop, tone.repeat != 0);
}

} // namespace

void EnableMenuItems(LMenu& menu, const MainState& state) {
    menu.EnableRange(CommandIncrease, CommandEditValue, state.selected);
    for (const int command : {CommandContinuous, CommandSpecifiedDuration, CommandMono, CommandStereo})
        menu.Enable(command, !state.tone.IsList());
    if (state.tone.HasComponents())
        EnableForPeriodicTone(menu, state);
    else
        EnableForNoiseOrList(menu, state);
    menu.Enable(CommandPlay, !state.playing);
    menu.Enable(CommandStop, state.playing);
    for (const int command : {CommandWebSite, CommandReportProblem})
        menu.Enable(command, !GetWebLink(command).empty());
    MarkMenuItems(menu, state.tone);
}

void EnableToolBarItems(LToolBar& mainBar, LToolBar& smallBar, const MainState& state) {
    const SonvireData& tone = state.tone;
    const bool periodic = tone.HasComponents();
    const bool editable = state.selected && (periodic || HasEditableDuration(tone));
    smallBar.Enable(CommandIncrease, editable);
    smallBar.Enable(CommandDecrease, editable);
    smallBar.Enable(CommandFiniteToggle, !tone.IsList());
    for (const int command :
         {CommandStereoToggle, CommandSweepLinear, CommandSweepLog, CommandVariableAmplitude})
        smallBar.Enable(command, periodic);

    for (int command = CommandFirstWaveform; command <= GetLastWaveform(); ++command)
        smallBar.SetState(command, command == WaveformCommand(tone.waveform));
    smallBar.SetState(CommandLoop, tone.repeat != 0);
    smallBar.SetState(CommandFiniteToggle, tone.HasFlag(ToneFlagDuration));
    smallBar.SetState(CommandStereoToggle, tone.HasFlag(ToneFlagStereo));
    smallBar.SetState(CommandVariableAmplitude, tone.HasFlag(ToneFlagVariableAmplitude));
    for (const int command : {CommandSweepLinear, CommandSweepLog})
        smallBar.SetState(command, command == GetModeCommand(tone));

    mainBar.EnableInsteadOf(state.playing ? CommandStop : CommandPlay,
                            state.playing ? CommandPlay : CommandStop);
    mainBar.SetState(CommandPlay, state.playing);
}
