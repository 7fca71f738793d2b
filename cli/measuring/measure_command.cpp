#include "cli/commands.h"

#include "cli/interrupt.h"
#include "cli/measuring/certificate_check.h"
#include "cli/measuring/measure_report.h"
#include "cli/print.h"
#include "cli/progress_line.h"
#include "cli/refusal.h"
#include "cli/sound_options.h"
#include "jobs/measure_job.h"
#include "sys/path.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <memory>

namespace {

struct MeasureOptions : SoundOptions {
    bool json = false;
    std::vector<std::string> typedLimits;
    std::optional<std::string> against; ///< a certificate

    bool IsStandardInput() const { return input == "-"; }
    std::string GetName() const { return IsStandardInput() ? "standard input" : GetInputName(); }
    bool IsSoundFile() const {
        return !input.empty() && !HasExtension(input, ".tdf") && !HasExtension(input, ".tdl");
    }
};

using Limits = std::vector<MeasureLimit>;

/// An input that is told of: without a reader it was refused.
FrameInput Accept(const MeasureOptions& options, FrameInput input, const InputFacts& facts = {}) {
    if (input.reader)
        HintAtShortDuration(options.tone);
    else
        Refuse(options.GetName(), input.failure.GetReason() + options.Hint(facts));
    if (input.reader && !options.Confirm(facts.warnings))
        input.reader = nullptr;
    return input;
}

FrameInput OpenStandard(const MeasureOptions& options) {
    const SoundInput input = options.OpenStandard();
    return Accept(options, ReadRendered(input, options.GetFormat()), input);
}

FrameInput OpenHigh(const MeasureOptions& options) {
    HiresInput input = options.OpenHigh();
    const InputFacts facts = input;
    return Accept(options, ReadRenderedHires(std::move(input), options.GetRounding()), facts);
}

int TellFigures(const MeasureOptions& options, const Limits& limits, CertificateCheck* check,
                const MeasuredSound& sound) {
    Json object = DescribeMeasurement(sound);
    object["limits"] = DescribeLimits(limits, sound);
    const std::vector<FigureChange> changes = check ? check->Finish(object) : std::vector<FigureChange>();
    if (check && !check->GetNote().empty())
        Warn(*options.against, check->GetNote());
    if (check)
        object["against"] = DescribeChanges(*options.against, changes);
    const std::string text = options.json ? WriteJson(object)
                             : check      ? TellChanges(sound.name, *options.against, changes)
                                          : ReportMeasurement(sound);
    if (PrintAll(text) != ExitCompleted)
        return ExitFailed;
    int status = changes.empty() ? ExitCompleted : ExitBroken;
    for (const MeasureLimit& each : limits)
        if (const LimitResult result = CheckLimit(each, sound); result.isBroken) {
            Tell(sound.name, std::string(each.figure->name) + ": " + result.reason);
            status = ExitBroken;
        }
    return status;
}

/// What happened while it was read. False where that is reason enough to fail.
bool TellNews(const MeasureOptions& options, LSourceNews& news) {
    const std::vector<LFileWarning> told = news.Take();
    const LFailure lost = FindLoss(told);
    if (lost)
        Refuse(options.GetName(), lost.GetReason());
    return !lost && options.Confirm(told);
}

int MeasureSound(const MeasureOptions& options, const Limits& limits, CertificateCheck* check,
                 FrameInput input) {
    if (check)
        input.reader = check->Watch(std::move(input.reader));
    FrameReader& reader = *input.reader;
    const auto [rate, channels, bits] = reader.format;
    SoundMeter meter(rate, static_cast<std::size_t>(channels), bits);
    MeasureJob job{.reader = reader, .meter = meter};
    CatchInterrupts();
    const auto length = static_cast<double>(std::max<std::int64_t>(reader.length, 0));
    if (RunJob(job, length / rate, options.quiet) == LProcessResult::Stopped)
        return Refuse(options.GetName(), "was not measured to its end: stopped");
    if (!TellNews(options, *input.news))
        return ExitFailed;
    return TellFigures(options, limits, check,
                       {.name = options.GetName(),
                        .rate = rate,
                        .bits = bits,
                        .limiterDb = reader.GetLimiterDb(),
                        .figures = meter.Finish()});
}

int MeasureInput(MeasureOptions options, const Limits& limits, CertificateCheck* check) {
    const bool describes = options.tone.DescribeTone() || (options.input.empty() && options.tone.durationMs);
    if (describes != options.input.empty())
        return Misuse("either INPUT or tone options are required");
    FrameInput input;
    if (options.IsSoundFile() && !options.ShapesSamples())
        input = Accept(options, ReadFileFrames(options.input));
    else if (options.IsStandardInput())
        return Refuse(options.GetName(), "is measured as it is, without options that shape samples");
    else if (const std::string problem = options.Settle(); !problem.empty())
        return Misuse(problem);
    else
        input = options.high.IsHigh() ? OpenHigh(options) : OpenStandard(options);
    return input.reader ? MeasureSound(options, limits, check, std::move(input)) : ExitFailed;
}

/// What the typed limits are, and those that go with them; refuses what is none.
std::optional<Limits> TakeLimits(const std::vector<std::string>& typed) {
    Limits limits;
    for (const std::string& each : typed) {
        TypedLimit taken = ParseLimit(each);
        if (!taken.problem.empty()) {
            Misuse("--limit: " + taken.problem);
            return {};
        }
        limits.push_back(std::move(taken.limit));
    }
    AddImpliedLimit(limits);
    return limits;
}

int Measure(const MeasureOptions& options) {
    if (std::count(options.typedLimits.begin(), options.typedLimits.end(), "?") > 0)
        return PrintAll(ExplainLimits());
    const std::optional<Limits> limits = TakeLimits(options.typedLimits);
    if (!limits)
        return ExitFailed;
    std::optional<CertificateCheck> check;
    if (options.against)
        check.emplace(*options.against);
    if (check && check->GetFailure())
        return Refuse(*options.against, check->GetFailure().GetReason());
    return MeasureInput(options, *limits, check ? &*check : nullptr);
}

} // namespace

void AddMeasureCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<MeasureOptions>();
    CLI::App* command = program.add_subcommand("measure", "Measure a tone, a tone list or a sound file");
    command->add_option(
        "INPUT", options->input,
        "A tone (.tdf), a tone list (.tdl) or a sound file, or - for one from standard input; "
        "left out where the tone options stand for it");
    command->add_flag("--json", options->json, "Print JSON, for scripts");
    command
        ->add_option(
            "--limit", options->typedLimits,
            "What a figure has to keep to, such as 'thdn<-90' or 'left.peak<=-0.1'; may be given more "
            "than once. '?' lists the names. A limit that is broken makes the exit status 1; samples "
            "that are no numbers break any")
        ->type_name("LIMIT")
        ->allow_extra_args(false);
    command
        ->add_option(
            "--against", options->against,
            "Print instead whether the sound is what this certificate of render's says, and what has "
            "changed; the exit status is 1 where it is not")
        ->type_name("FILE");
    AddSoundOptions(*command, *options);
    command->callback([options, &status] { status = Measure(*options); });
}
