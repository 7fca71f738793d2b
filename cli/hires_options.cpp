#include "cli/hires_options.h"

#include "cli/refusal.h"
#include "cli/text.h"
#include "hires/file_kind.h"
#include "jobs/hires_files.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double LongestFadeMs = 3'600'000;
constexpr double HighestLevel = 100; // for a tone of components far below 0 dB

/// Gives an option's texts to `take`, which returns what is wrong with them.
template <class Take>
CLI::Validator Taking(Take take) {
    return CLI::Validator([take](std::string& text) -> std::string { return take(text); }, "");
}

std::string TakeLevel(HiresOptions& options, const std::string& text) {
    options.level = ParseLevel(text);
    if (!options.level)
        return ExplainNone(Levels, text);
    const bool isInRange = *options.level >= HiresSettings::LowestLevel && *options.level <= HighestLevel;
    return isInRange ? "" : "\"" + text + "\" is not in the range -200 to 100 dBFS";
}

std::string TakeFades(HiresOptions& options, const std::string& text) {
    const std::vector<std::string> parts = SplitAtCommas(text);
    if (parts.empty() || parts.size() > 2)
        return "\"" + text + "\" is not one duration or two";
    options.fadeInMs = ParseDuration(parts.front());
    options.fadeOutMs = ParseDuration(parts.back());
    if (!options.fadeInMs || !options.fadeOutMs)
        return ExplainNone(Durations, text);
    const auto [shorter, longer] = std::minmax(*options.fadeInMs, *options.fadeOutMs);
    return shorter >= 0 && longer <= LongestFadeMs ? "" : "\"" + text + "\" is not in the range 0 to 1h";
}

} // namespace

void HiresOptions::Imply(const std::string& what) {
    if (implied.empty())
        implied = what;
}

void HiresOptions::ImplyFor(const std::string& file) {
    const HiresFileKind* kind = HiresFileKind::Find(file);
    if (kind && kind->container != HiresFileKind::Container::Wave)
        Imply(file);
}

std::string HiresOptions::Settle() const {
    if (implied.empty() || quality == "high")
        return {};
    if (quality == "standard")
        return implied + " goes with high quality, not with --quality standard";
    Warn(implied, "goes with high quality, which is taken");
    return {};
}

HiresInput HiresOptions::Open(const std::string& path, const HiresRequest& request) const {
    HiresInput input = OpenHiresInput(path, request);
    if (LFailure refused = CheckFor(input.isFile); !input.failure && refused)
        input.failure = std::move(refused);
    return input;
}

LFailure HiresOptions::CheckFor(bool isSoundFile) const {
    const bool concernTones = level || fits || fadeInMs;
    return isSoundFile && concernTones
               ? "is a sound file, which keeps its level: --level, --fit and --fade go with tones"
               : LFailure();
}

bool WarnOfSilence(const std::string& name, const HiresInput& input) {
    const bool isSilent = !input.failure && !input.isFile && !input.isList && std::isinf(input.peak);
    if (isSilent)
        Warn(name, "is silent: no component has a level and lies below half the rate of " +
                       std::to_string(input.source->rate) + " Hz");
    return isSilent;
}

HiresSettings HiresOptions::MakeSettings(double fadeMs, std::optional<int> seed) const {
    HiresSettings settings;
    settings.level = level.value_or(settings.level);
    settings.fit = fits;
    settings.fadeInMs = fadeInMs.value_or(fadeMs);
    settings.fadeOutMs = fadeOutMs.value_or(fadeMs);
    if (seed)
        settings.seed = static_cast<std::uint64_t>(*seed);
    return settings;
}

void AddHiresOptions(CLI::App& command, HiresOptions& options) {
    command
        .add_option("--quality", options.quality,
                    "standard (without this option) or high: any rate, exact levels, clean waveforms")
        ->check(CLI::IsMember({"standard", "high"}))
        ->type_name("NAME")
        ->group(HiresOptions::Group);
    const auto add = [&](const char* name, const char* what, const char* type, auto take) {
        command
            .add_option_function<std::string>(
                name, [&options, name](const std::string& /*text*/) { options.Imply(name); }, what)
            ->transform(Taking([&options, take](const std::string& text) { return take(options, text); }))
            ->type_name(type)
            ->group(HiresOptions::Group);
    };
    add("--level", "Where a component of 0 dB stands, in dBFS and any fraction; without it, -12.04", "DB",
        TakeLevel);
    add("--fade",
        "Fades every tone in and out, by this many milliseconds or 10,50 where they differ; without it, 10 "
        "where it plays, and 0 where it is rendered",
        "MS[,MS]", TakeFades);
    command
        .add_flag_callback(
            "--fit",
            [&options] {
                options.fits = true;
                options.Imply("--fit");
            },
            "Lower what would exceed full scale; without it, that is refused")
        ->group(HiresOptions::Group);
}

std::string HintAtHighQuality(const std::string& path) {
    const HiresTone opened = OpenSoundFile(path, {}, std::make_shared<LSourceNews>());
    return opened.source ? " (--quality high reads it)" : "";
}
