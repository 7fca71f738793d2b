#include "cli/commands.h"

#include "cli/interrupt.h"
#include "cli/play_display.h"
#include "cli/refusal.h"
#include "cli/text.h"
#include "cli/tone_options.h"
#include "jobs/sound_input.h"
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
    int volumeDb = 0;
    std::optional<int> seed; ///< of noise
    ToneOptions tone;        ///< stand for the input where it is left out
};

int RefuseStatus(LPlayStatus status, const PlayOptions& options, const std::string& name,
                 const LSoundSource& source) {
    switch (status) {
    case PlayNoOutput:
        return Refuse(name, "can't be played: there is no sound output that takes " +
                                std::to_string(source->channels) + " channels at " +
                                std::to_string(source->sampleRate) +
                                " Hz; no sound server or card was found, it doesn't answer, or it refuses");
    case PlayNoDevice:
        return Refuse(options.device, "there is no such sound output (see sonvire-cli devices)");
    default:
        return Refuse(name, "playback ended early: the sound output went away");
    }
}

int PlayThrough(const PlayOptions& options, const std::string& name, const SoundInput& input) {
    if (!HasRoomForOutput(OwnDescriptors))
        return Refuse(name, "can't be played: this process may have no more files or threads");
    CatchInterrupts();
    LEventLoop loop;
    PlayDisplay display(loop, input);
    LSoundPlayer player(OpenCubebChannel);
    if (!options.device.empty())
        player.SetDevice(LSoundPlayDevice::OfName(options.device));
    player.SetTitle(std::filesystem::path(name).filename().string());
    player.SetPlayVolume(LDB(static_cast<std::int8_t>(options.volumeDb)));
    player.SetNotify(&display, 0);
    if (!player.Start(input.source))
        return Refuse(name, "can't be played");
    loop.Watch(GetInterruptDescriptor(), [&] { player.Stop(); });
    loop.Run();
    if (player.GetStatus() != PlayUsable)
        return RefuseStatus(player.GetStatus(), options, name, input.source);
    return IsInterrupted() ? ExitStopped : ExitCompleted;
}

int PlayInput(const PlayOptions& options, const std::string& name, const SoundInput& input) {
    if (input.failure)
        return Refuse(name, input.failure.GetReason());
    HintAtShortDuration(options.tone);
    for (const LFileWarning& warning : input.warnings)
        Warn(warning.file, warning.reason);
    return PlayThrough(options, name, input);
}

int Play(const PlayOptions& options) {
    const bool describes = options.tone.DescribeTone() || (options.input.empty() && options.tone.durationMs);
    if (describes != options.input.empty())
        return Misuse("either INPUT or tone options are required");
    if (!options.input.empty())
        return PlayInput(options, options.input,
                         OpenSoundInput(options.input, options.tone.durationMs, SoundLength::Any));
    const DescribedTone described = MakeTone(options.tone);
    if (!described.problem.empty())
        return Misuse(described.problem);
    return PlayInput(options, "the tone", OpenToneInput(described.tone, SoundLength::Any));
}

} // namespace

void AddPlayCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<PlayOptions>();
    CLI::App* command = program.add_subcommand("play", "Play a tone, a tone list or a WAVE file");
    command->add_option(
        "INPUT", options->input,
        "A tone (.tdf), a tone list (.tdl) or a WAVE file (.wav); left out where tone options stand "
        "for it");
    command->add_option("--device", options->device, "The sound output, by its name; without it, the default")
        ->type_name("NAME");
    command
        ->add_option("--volume", options->volumeDb,
                     "Volume in dB: -36 and less is silence, 13 and more plays at full level")
        ->transform(WholeIn(Levels, -127, 127))
        ->type_name("DB")
        ->capture_default_str();
    AddSeedOption(*command, options->seed);
    AddToneOptions(*command, options->tone);
    command->callback([options, &status] { status = Play(*options); });
}
