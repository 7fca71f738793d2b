#include "app/window/tone_commands.h"

#include "app/window/command_ids.h"

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
    if (command >= CommandFirstWaveform && command <= CommandPinkNoise) {
        tone.waveform = static_cast<std::uint8_t>(command - CommandFirstWaveform);
        if (command >= CommandWhiteNoise)
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

void SetListPath(SonvireData& tone, const std::string& path) {
    const std::size_t length = path.copy(tone.listPath, sizeof tone.listPath - 1);
    tone.listPath[length] = 0;
}

bool IsList(const SonvireData& tone) {
    return tone.waveform == ToneFromList;
}

bool IsNoiseOrList(const SonvireData& tone) {
    return tone.waveform == ToneWhiteNoise || tone.waveform == TonePinkNoise || IsList(tone);
}
