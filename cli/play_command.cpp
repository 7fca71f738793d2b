#include "cli/commands.h"

#include "cli/hires_options.h"
#include "cli/interrupt.h"
#include "cli/play_display.h"
#include "cli/refusal.h"
#include "cli/text.h"
#include "cli/tone_options.h"
#include "jobs/hires_input.h"
#include "play/cubeb_output.h"
#include "play/room_for_output.h"
#include "play/sound_player.h"
#include "sys/event_loop.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <filesystem>
#include <memory>

namespace {

constexpr int OwnDescriptors = 8; // of the event loop, Ctrl-C and the player

struct PlayOptions {
    std::string input;
    std::string device;
    std::optional<int> volumeDb;
    std::optional<int> seed;
    ToneOptions tone; ///< stand for the input where it is left out
    HiresOptions high;
};

/// An input in either quality, as the player takes it.
struct Playable {
    const InputFacts& facts;
    LSoundTime length;
    std::string format; ///< what it asks of an output, in words
    std::function<bool(LSoundPlayer&)> start;
    /// Why it could not be opened for the output, where that is so.
    std::shared_ptr<const LFailure> failure = std::make_shared<LFailure>();
};

Playable MakePlayable(const SoundInput& input) {
    return {.facts = input,
            .length = input.source.GetEnd(),
            .format = std::to_string(input.source->channels) + " channels at " +
                      std::to_string(input.source->sampleRate) + " Hz",
            .start = [source = input.source](LSoundPlayer& player) { return player.Start(source); }};
}

void WarnOfSilence(const std::string& /*name*/, const SoundInput& /*input*/) {}

Playable MakePlayable(const HiresInput& input) {
    const auto failure = std::make_shared<LFailure>();
    const auto open = [failure, open = input.open](int rate) {
        HiresTone opened = open(rate);
        *failure = std::move(opened.failure);
        return std::move(opened.source);
    };
    const auto start = [open](LSoundPlayer& player) {
        player.Start(open);
        return true;
    };
    return {.facts = input,
            .length = LPlayFormat{.rate = input.source->rate}.GetTime(input.source->GetLength()),
            .format = std::to_string(input.source->channels) + " channels of floats",
            .start = start,
            .failure = failure};
}

int RefuseStatus(LPlayStatus status, const PlayOptions& options, const std::string& name,
                 const Playable& playable) {
    switch (status) {
    case PlayNoOutput:
        return Refuse(name, "can't be played: there is no sound output that takes " + playable.format +
                                "; no sound server or card was found, it doesn't answer, or it refuses");
    case PlayNoDevice:
        return Refuse(options.device, "there is no such sound output (see sonvire-cli devices)");
    case PlayNoSound:
        return Refuse(name, playable.failure->GetReason());
    default:
        return Refuse(name, "playback ended early: the sound output went away");
    }
}

int PlayThrough(const PlayOptions& options, const std::string& name, const Playable& playable) {
    if (!HasRoomForOutput(OwnDescriptors))
        return Refuse(name, "can't be played: this process may have no more files or threads");
    CatchInterrupts();
    LEventLoop loop;
    PlayDisplay display(loop, playable.facts, playable.length);
    LSoundPlayer player(OpenCubebChannel, FindCubebRate);
    if (!options.device.empty())
        player.SetDevice(LSoundPlayDevice::OfName(options.device));
    player.SetTitle(std::filesystem::path(name).filename().string());
    if (options.volumeDb || !options.high.IsHigh()) // whose levels are exact at full volume
        player.SetPlayVolume(LDB(static_cast<std::int8_t>(options.volumeDb.value_or(0))));
    player.SetNotify(&display, 0);
    if (!playable.start(player))
        return Refuse(name, "can't be played");
    loop.Watch(GetInterruptDescriptor(), [&] { player.Stop(); });
    loop.Run();
    if (player.GetStatus() != PlayUsable)
        return RefuseStatus(player.GetStatus(), options, name, playable);
    return IsInterrupted() ? ExitStopped : ExitCompleted;
}

template <class Input>
int PlayInput(const PlayOptions& options, const std::string& name, const Input& input) {
    if (input.failure)
        return Refuse(name, input.failure.GetReason() +
                                (options.high.IsHigh() ? "" : HintAtHighQuality(options.input)));
    HintAtShortDuration(options.tone);
    for (const LFileWarning& warning : input.warnings)
        Warn(warning.file, warning.reason);
    WarnOfSilence(name, input);
    return PlayThrough(options, name, MakePlayable(input));
}

HiresRequest MakeRequest(const PlayOptions& options) {
    return {.settings = options.high.MakeSettings(HiresSettings::PlayedFadeMs, options.seed),
            .durationMs = options.tone.durationMs,
            .length = SoundLength::Any};
}

int PlayFile(const PlayOptions& options) {
    if (options.high.IsHigh())
        return PlayInput(options, options.input, options.high.Open(options.input, MakeRequest(options)));
    return PlayInput(options, options.input,
                     OpenSoundInput(options.input, options.tone.durationMs, SoundLength::Any));
}

int PlayTone(const PlayOptions& options) {
    const auto [tone, problem] = MakeTone(options.tone);
    if (!problem.empty())
        return Misuse(problem);
    if (options.high.IsHigh())
        return PlayInput(options, "the tone", OpenHiresToneInput(tone, MakeRequest(options)));
    return PlayInput(options, "the tone", OpenToneInput(tone, SoundLength::Any));
}

int Play(PlayOptions options) {
    const bool describes = options.tone.DescribeTone() || (options.input.empty() && options.tone.durationMs);
    if (describes != options.input.empty())
        return Misuse("either INPUT or tone options are required");
    options.high.ImplyFor(options.input);
    if (const std::string problem = options.high.Settle(); !problem.empty())
        return Misuse(problem);
    return options.input.empty() ? PlayTone(options) : PlayFile(options);
}

} // namespace

void AddPlayCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<PlayOptions>();
    CLI::App* command = program.add_subcommand("play", "Play a tone, a tone list or a sound file");
    command->add_option(
        "INPUT", options->input,
        "A tone (.tdf), a tone list (.tdl) or a WAVE file (.wav); left out where tone options stand "
        "for it");
    command->add_option("--device", options->device, "The sound output, by its name; without it, the default")
        ->type_name("NAME");
    command
        ->add_option(
            "--volume", options->volumeDb,
            "Volume in dB: -36 and less is silence, 13 and more plays at full level; without it 0, or "
            "in high quality full level")
        ->transform(WholeIn(Levels, -127, 127))
        ->type_name("DB");
    AddSeedOption(*command, options->seed);
    AddHiresOptions(*command, options->high);
    AddToneOptions(*command, options->tone);
    command->callback([options, &status] { status = Play(*options); });
}
