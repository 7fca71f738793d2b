#include "app/window/tone_commands.h"

#include "app/list_report.h"
#include "app/quality.h"
#include "app/window/command_ids.h"
#include "tone/tone_engine.h"
#include "tone/waveforms.h"

#include <algorithm>

namespace {

struct FlagChange {
    int command;
    unsigned int cleared;
    unsigned int set;
    unsigned int switched;
};

constexpr unsigned int Sweeps = ToneFlagSweep | ToneFlagLogSweep;

constexpr FlagChange FlagChanges[] = {
    {CommandContinuous, Sweeps | ToneFlagDuration, 0, 0},
    {CommandSpecifiedDuration, Sweeps, ToneFlagDuration, 0},
    {CommandSweepLinear, ToneFlagLogSweep, ToneFlagSweep | ToneFlagDuration, 0},
    {CommandSweepLog, 0, Sweeps | ToneFlagDuration, 0},
    {CommandMono, ToneFlagStereo, 0, 0},
    {CommandStereo, 0, ToneFlagStereo, 0},
    {CommandVariableAmplitude, 0, 0, ToneFlagVariableAmplitude},
};

/// What noise does without; it may have a duration.
constexpr unsigned int NotOfNoise = Sweeps | ToneFlagStereo | ToneFlagVariableAmplitude;

void Apply(SonvireData& tone, const FlagChange& change) {
    const unsigned int kept = tone.flags & ~change.cleared;
    tone.flags = static_cast<std::uint16_t>((kept | change.set) ^ change.switched);
}

bool ChangeFlags(SonvireData& tone, int command) {
    const auto* change = std::find_if(std::begin(FlagChanges), std::end(FlagChanges),
                                      [command](const FlagChange& each) { return each.command == command; });
    if (change == std::end(FlagChanges))
        return false;
    Apply(tone, *change);
    if (command == CommandContinuous)
        tone.repeat = 0; // a loop has an end to go back from
    return true;
}

} // namespace

bool ChangeTone(SonvireData& tone, int command) {
    if (command >= CommandOneTone && command <= CommandSixteenTones) {
        tone.numTones = static_cast<std::uint8_t>(command - CommandNumberOfTones);
        return true;
    }
    const int code = command - CommandFirstWaveform;
    if (code != ToneFromList && FindWaveform(static_cast<unsigned int>(code))) {
        tone.waveform = static_cast<std::uint8_t>(code);
        if (!tone.HasComponents())
            Apply(tone, {command, NotOfNoise, 0, 0});
        return true;
    }
    return ChangeFlags(tone, command);
}

int GetModeCommand(const SonvireData& tone) {
    if (!tone.HasFlag(ToneFlagDuration))
        return CommandContinuous;
    if (!tone.HasFlag(ToneFlagSweep))
        return CommandSpecifiedDuration;
    return tone.HasFlag(ToneFlagLogSweep) ? CommandSweepLog : CommandSweepLinear;
}

/// What is wrong with a list is told when it plays.
void TakeLength(SonvireData& tone) {
    if (GetQuality().IsHigh()) {
        tone.durationMs = static_cast<std::uint32_t>(ExamineList(tone.GetListPath()).Measure().ms);
        return;
    }
    SonvireData onePass = tone;
    onePass.repeat = 0;
    ToneListReport untold;
    tone.durationMs = static_cast<std::uint32_t>(OpenToneEngine(onePass, &untold).GetEnd().GetMilliseconds());
}

void SetListPath(SonvireData& tone, const std::string& path) {
    const std::size_t length = path.copy(tone.listPath, sizeof tone.listPath - 1);
    tone.listPath[length] = 0;
}
