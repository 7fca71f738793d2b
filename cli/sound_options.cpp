#include "cli/sound_options.h"

#include "cli/refusal.h"
#include "cli/text.h"
#include "sound/files/wave_file.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace {

void ImplyQuality(SoundOptions& options, const std::string& output) {
    if (options.rate.value_or(0) > LWaveFile::MaxRate)
        options.high.Imply("--rate " + std::to_string(*options.rate));
    if (!options.bits.empty() && options.bits != "8" && options.bits != "16")
        options.high.Imply("--bits " + options.bits);
    options.high.ImplyFor(options.input);
    options.high.ImplyFor(output);
}

HiresSamples GetSamples(const std::string& bits) {
    return bits == "16"      ? HiresSamples::Int16
           : bits == "32"    ? HiresSamples::Int32
           : bits == "float" ? HiresSamples::Float
                             : HiresSamples::Int24;
}

/// Why high quality can't do what is asked for; empty where it can.
std::string CheckHigh(const SoundOptions& options) {
    if (options.bits == "8")
        return "--bits 8 goes with the standard quality";
    if (options.rate && *options.rate < HiresSettings::LowestRate)
        return "--rate " + std::to_string(*options.rate) + ": high quality has rates from 8000 Hz on";
    if (!options.dither.empty() && options.bits != "16")
        return "--dither goes with --bits 16";
    return options.high.Settle();
}

} // namespace

std::string SoundOptions::GetInputName() const {
    return input.empty() ? "the tone" : input;
}

bool SoundOptions::ShapesSamples() const {
    return rate || channels || seed || tone.durationMs || high.IsHigh() ||
           !(bits + dither + high.quality).empty();
}

std::string SoundOptions::Settle(const std::string& output) {
    ImplyQuality(*this, output);
    const std::string problem = high.IsHigh() ? CheckHigh(*this) : std::string();
    return problem.empty() && input.empty() ? MakeTone(tone).problem : problem;
}

RenderedFormatRequest SoundOptions::GetFormat() const {
    RenderedFormatRequest format{.rate = rate, .bits = bits == "8" ? 8 : 16};
    if (channels)
        format.channels = static_cast<std::uint8_t>(*channels);
    return format;
}

HiresRounding SoundOptions::GetRounding() const {
    return {.samples = GetSamples(bits), .dither = dither != "none", .seed = high.MakeSettings(0, seed).seed};
}

SoundInput SoundOptions::OpenStandard() const {
    return input.empty() ? OpenToneInput(MakeTone(tone).tone, SoundLength::Finite)
                         : OpenSoundInput(input, tone.durationMs, SoundLength::Finite);
}

HiresInput SoundOptions::OpenHigh() const {
    const HiresRequest request{.settings = high.MakeSettings(0, seed),
                               .rate = rate,
                               .channels = channels,
                               .durationMs = tone.durationMs};
    return input.empty() ? OpenHiresToneInput(MakeTone(tone).tone, request) : high.Open(input, request);
}

bool SoundOptions::Confirm(const std::vector<LFileWarning>& warnings) const {
    for (const LFileWarning& warning : warnings) {
        if (strict) {
            Refuse(warning.file, warning.reason);
            return false;
        }
        Warn(warning.file, warning.reason);
    }
    return true;
}

std::string SoundOptions::Hint(const InputFacts& facts) const {
    if (facts.endless && !facts.isList)
        return " (--duration gives it one)";
    return facts.failure && !high.IsHigh() ? HintAtHighQuality(input) : "";
}

void AddSoundOptions(CLI::App& command, SoundOptions& options) {
    command
        .add_option(
            "--rate", options.rate,
            "Sample rate, 1 to 196000, or 8000 to 768000 in high quality; without it, the input's own, "
            "and 44100 of tones")
        ->transform(WholeIn(Rates, 1, HiresSettings::HighestRate))
        ->type_name("HZ");
    command.add_option("--channels", options.channels, "1 (mono) or 2 (stereo); without it, the input's own")
        ->check(CLI::IsMember({1, 2}))
        ->type_name("N");
    command
        .add_option("--bits", options.bits,
                    "Bits per sample: 8 or 16 (without this option); in high quality 16, 24 (without this "
                    "option), 32 or float")
        ->check(CLI::IsMember({"8", "16", "24", "32", "float"}))
        ->type_name("N");
    command
        .add_option_function<std::string>(
            "--dither",
            [&options](const std::string& kind) {
                options.dither = kind;
                options.high.Imply("--dither");
            },
            "Of 16 bits: triangular (tpdf, without this option) or none")
        ->check(CLI::IsMember({"tpdf", "none"}))
        ->type_name("KIND")
        ->group(HiresOptions::Group);
    command.add_flag("--strict", options.strict, "Fail where an entry of a list can't be used");
    command.add_flag("--quiet", options.quiet, "Show no progress");
    AddSeedOption(command, options.seed);
    AddHiresOptions(command, options.high);
    AddToneOptions(command, options.tone);
}
