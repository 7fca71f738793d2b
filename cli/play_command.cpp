#include "play_command.h"

#include "interrupt.h"
#include "play_display.h"
#include "refusal.h"
#include "sound/sound_player.h"
#include "sound_input.h"
#include "sys/event_loop.h"
#include "tone/tone_data.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <filesystem>
#include <memory>
#include <optional>

namespace {

constexpr unsigned int InterruptPollMs = 20;

struct PlayOptions {
    std::string input;
    std::string device;
    int volumeDb = 0;
    std::optional<unsigned int> durationMs;
};

std::string ExplainPlayStatus(LPlayStatus status, int rate) {
    switch (status) {
    case PlayNoOutput:
        return "can't be played: there is no sound output that takes " + std::to_string(rate) +
               " Hz; no sound server or card was found, or it refuses";
    case PlayNoDevice:
        return "can't be played: the sound output is not there any more";
    default:
        return "playback ended early: the sound output went away";
    }
}

int PlayThrough(const PlayOptions& options, const SoundInput& input, const LSoundPlayDevice& device) {
    LEventLoop loop;
    PlayDisplay display(loop, input.source.GetEnd(), input.endless);
    LSoundPlayer player;
    player.SetDevice(device);
    player.SetTitle(std::filesystem::path(options.input).filename().string());
    player.SetPlayVolume(LDB(static_cast<std::int8_t>(options.volumeDb)));
    player.SetNotify(&display, 0);
    if (!player.Start(input.source))
        return Refuse(options.input, "can't be played");
    bool interrupted = false;
    loop.Run(InterruptPollMs, [&] {
        interrupted = IsInterrupted();
        if (interrupted)
            player.Stop();
    });
    if (player.GetStatus() != PlayUsable)
        return Refuse(options.input, ExplainPlayStatus(player.GetStatus(), input.source->sampleRate));
    return interrupted ? ExitStopped : ExitCompleted;
}

int Play(const PlayOptions& options) {
    const SoundInput input = OpenSoundInput(options.input, options.durationMs, SoundLength::Any);
    if (!input.refusal.empty())
        return Refuse(options.input, input.refusal);
    LSoundPlayDevice device;
    if (!options.device.empty() && options.device != LSoundPlayDevice::DefaultName) {
        device = LSoundPlayDevice(LSoundPlayDevice::GetListDeviceIndex(options.device.c_str()));
        if (device.IsDefault())
            return Refuse(options.device, "there is no such sound output (see sonvire-cli devices)");
    }
    if (!input.warning.empty())
        Warn(options.input, input.warning);
    return PlayThrough(options, input, device);
}

} // namespace

void AddPlayCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<PlayOptions>();
    CLI::App* command = program.add_subcommand("play", "Play a tone or a WAVE file");
    command->add_option("INPUT", options->input, "A tone (.tdf) or a WAVE file (.wav)")->required();
    command->add_option("--device", options->device, "The sound output, by its name; without it, the default")
        ->type_name("NAME");
    command
        ->add_option("--volume", options->volumeDb,
                     "Volume in dB: -36 and less is silence, 13 and more plays at full level")
        ->check(CLI::Range(-127, 127))
        ->type_name("DB")
        ->capture_default_str();
    command->add_option("--duration", options->durationMs, "Play the tone for that long, in milliseconds")
        ->check(CLI::Range(1u, MaxToneDurationMs))
        ->type_name("MS");
    command->callback([options, &status] { status = Play(*options); });
}
