#include "cli/tone_options.h"

#include "cli/refusal.h"
#include "cli/text.h"
#include "sys/random.h"
#include "tone/waveforms.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr unsigned int ShortMs = 50;

/// The waveforms that options can describe, by their usual names: "sine, square, ...".
std::string ListWaveforms() {
    std::string listed;
    for (const ToneWaveformRow& each : GetWaveforms())
        if (each.typedNames[0])
            listed += (listed.empty() ? "" : ", ") + std::string(each.typedNames[0]);
    return listed;
}

bool IsNamed(const ToneWaveformRow& waveform, const std::string& name) {
    return std::any_of(waveform.typedNames.begin(), waveform.typedNames.end(),
                       [&name](const char* each) { return each && name == each; });
}

/// Builds a tone step by step; the first thing that is wrong stays as the problem.
class ToneMaker {
public:
    explicit ToneMaker(const ToneOptions& toneOptions) : options(toneOptions) {}

    DescribedTone Make() {
        SetWaveform();
        if (!made.tone.HasComponents())
            CheckNoise();
        else
            SetComponents();
        SetLength();
        return made;
    }

private:
    void Fail(const std::string& problem) {
        if (made.problem.empty())
            made.problem = problem;
    }

    void SetFlag(ToneFlags flag) { made.tone.flags |= flag; }

    void SetWaveform() {
        if (options.waveform.empty())
            return;
        std::string wanted = ToLower(options.waveform);
        std::erase_if(wanted, [](char c) { return c == ' ' || c == '-' || c == '_'; });
        const auto waveforms = GetWaveforms();
        const auto found = std::find_if(waveforms.begin(), waveforms.end(),
                                        [&wanted](const auto& each) { return IsNamed(each, wanted); });
        if (found == waveforms.end())
            return Fail("--waveform: \"" + options.waveform + "\" is none of " + ListWaveforms());
        made.tone.waveform = static_cast<std::uint8_t>(found - waveforms.begin());
    }

    void CheckNoise() {
        if (!(options.frequency + options.right + options.end + options.endRight + options.amplitude +
              options.sweep)
                 .empty() ||
            options.tones.value_or(1) != 1)
            Fail(std::string(made.tone.GetToneName()) + " has no components, frequencies, sweeps or levels");
    }

    void SetComponents() {
        made.tone.numTones = static_cast<std::uint8_t>(options.tones.value_or(CountComponents()));
        SetValues("--frequency", Frequencies, options.frequency, made.tone.startLeftHz);
        if (!options.right.empty()) {
            SetFlag(ToneFlagStereo);
            SetValues("--right", Frequencies, options.right, made.tone.startRightHz);
        }
        SetSweep();
        if (!options.amplitude.empty())
            SetAmplitudes();
    }

    int CountComponents() const {
        std::size_t count = 1;
        for (const std::string& values :
             {options.frequency, options.right, options.end, options.endRight, options.amplitude})
            count = std::max(count, SplitAtCommas(values).size());
        return static_cast<int>(std::min<std::size_t>(count, MaxTones + 1));
    }

    void SetSweep() {
        if (options.end.empty()) {
            if (!(options.endRight + options.sweep).empty())
                Fail("a sweep needs --end, where it ends");
            return;
        }
        if (!options.right.empty() && options.endRight.empty())
            Fail("a sweep with --right needs --end-right, where it ends on that side");
        if (options.right.empty() && !options.endRight.empty())
            Fail("--end-right needs --right, where it starts");
        SetFlag(ToneFlagSweep);
        SetFlag(ToneFlagDuration);
        if (options.sweep == "log")
            SetFlag(ToneFlagLogSweep);
        SetValues("--end", Frequencies, options.end, made.tone.endLeftHz);
        if (!options.endRight.empty())
            SetValues("--end-right", Frequencies, options.endRight, made.tone.endRightHz);
    }

    void SetAmplitudes() {
        double decibels[MaxTones];
        SetValues("--amplitude", Levels, options.amplitude, decibels);
        if (!made.problem.empty())
            return;
        SetFlag(ToneFlagVariableAmplitude);
        for (std::size_t i = 0; i < made.tone.GetToneCount(); ++i) {
            if (decibels[i] != std::trunc(decibels[i]) || decibels[i] < -127 || decibels[i] > 0)
                Fail("--amplitude: levels are whole numbers between -127 and 0");
            else
                made.tone.amplitudeDb[i] = static_cast<std::int8_t>(decibels[i]);
        }
    }

    /// One value per component, or one for all.
    void SetValues(const std::string& option, const TypedKind& kind, const std::string& text,
                   double (&values)[MaxTones]) {
        const std::vector<std::string> parts = SplitAtCommas(text);
        const std::size_t count = made.tone.numTones;
        if (count < 1 || count > MaxTones)
            return Fail("a tone has 1 to 16 components");
        if (parts.empty())
            return;
        if (parts.size() != 1 && parts.size() != count)
            return Fail(option + ": " + std::to_string(parts.size()) + " values don't fit " +
                        std::to_string(count) + (count == 1 ? " component" : " components"));
        for (std::size_t i = 0; i < count; ++i) {
            const std::string& part = parts[parts.size() == 1 ? 0 : i];
            const std::optional<double> value = kind.parse(part);
            if (!value)
                return Fail(option + ": " + ExplainNone(kind, part));
            values[i] = *value;
        }
    }

    void SetLength() {
        if (options.durationMs)
            made.tone.SetDuration(*options.durationMs);
        if (options.loop) {
            SetFlag(ToneFlagDuration);
            made.tone.repeat = 1;
        }
    }

    const ToneOptions& options;
    DescribedTone made;
};

} // namespace

bool ToneOptions::DescribeTone() const {
    return tones || loop || !(waveform + frequency + right + end + endRight + amplitude + sweep).empty();
}

void AddToneOptions(CLI::App& command, ToneOptions& options) {
    const auto add = [&command](const char* name, auto& value, const char* what, const char* type) {
        return command.add_option(name, value, what)->type_name(type)->group("Tone");
    };
    add("--waveform", options.waveform, ("One of " + ListWaveforms() + "; without it, a sine").c_str(),
        "NAME");
    add("--tones", options.tones, "How many components sound; without it, as many as values are given", "N")
        ->check(DecimalIn(1, MaxTones));
    add("--frequency", options.frequency, "Frequency of each component, or one for all: 440,1.5k,A4", "HZ");
    add("--right", options.right, "The right channel's frequencies; makes the tone stereo", "HZ");
    add("--end", options.end, "Where a sweep ends", "HZ");
    add("--end-right", options.endRight, "Where the right channel's sweep ends", "HZ");
    add("--sweep", options.sweep, "linear (without this option) or log", "KIND")
        ->check(CLI::IsMember({"linear", "log"}));
    add("--amplitude", options.amplitude, "Level of each component, -127 (silence) to 0: 0,-6,-12", "DB");
    add("--duration", options.durationMs, "How long the tone lasts: 500ms, 5s, 1:30", "MS")
        ->transform(WholeIn(Durations, 1, MaxToneDurationMs))
        ->transform(CLI::Validator(
            [&options](const std::string& text) {
                options.durationIsBare = text.find_first_not_of("0123456789") == std::string::npos;
                return std::string();
            },
            ""));
    command.add_flag("--loop", options.loop, "Play the tone over and over")->group("Tone");
}

void HintAtShortDuration(const ToneOptions& options) {
    if (!options.durationIsBare || options.durationMs.value_or(ShortMs) >= ShortMs)
        return;
    const std::string number = std::to_string(*options.durationMs);
    Warn("--duration " + number, "these are milliseconds; " + number + "s would be seconds");
}

void AddSeedOption(CLI::App& command, std::optional<int>& seed) {
    command
        .add_option_function<int>(
            "--seed",
            [&seed](int value) {
                seed = value;
                FixRandomSeed(static_cast<std::uint32_t>(value));
            },
            "Makes white and pink noise the same every time; without it, they always differ, but in high "
            "quality, whose dither has it as well")
        ->check(DecimalIn(0, std::numeric_limits<int>::max()))
        ->type_name("N");
}

DescribedTone MakeTone(const ToneOptions& options) {
    return ToneMaker(options).Make();
}
