#include "cli/commands.h"

#include "cli/file_report.h"
#include "cli/hires_options.h"
#include "cli/print.h"
#include "cli/refusal.h"
#include "cli/text.h"
#include "jobs/hires_input.h"
#include "sys/path.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <memory>

namespace {

struct ShowOptions {
    std::string input;
    bool json = false;
    std::optional<int> rate;
    HiresOptions high;
};

int Show(ShowOptions options) {
    options.high.ImplyFor(options.input);
    if (const std::string problem = options.high.Settle(); !problem.empty())
        return Misuse(problem);
    const bool isSoundFile = !HasExtension(options.input, ".tdf") && !HasExtension(options.input, ".tdl");
    if (const LFailure refused = options.high.CheckFor(isSoundFile))
        return Refuse(options.input, refused.GetReason());
    const HiresRequest request{
        .settings = options.high.MakeSettings(0, {}), .rate = options.rate, .length = SoundLength::Any};
    const FileReport report = ReportFile(options.input, options.high.IsHigh() ? &request : nullptr);
    if (report.failure)
        return Refuse(options.input, report.failure.GetReason() +
                                         (options.high.IsHigh() ? "" : HintAtHighQuality(options.input)));
    return PrintAll(options.json ? report.json : report.ToText());
}

} // namespace

void AddShowCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App* command =
        program.add_subcommand("show", "Print what a tone, a tone list or a sound file holds");
    command->add_option("INPUT", options->input, "A tone (.tdf), a tone list (.tdl) or a sound file (.wav)")
        ->required();
    command->add_flag("--json", options->json, "Print JSON, for scripts");
    AddHiresOptions(*command, options->high);
    command
        ->add_option_function<int>(
            "--rate",
            [options](int rate) {
                options->rate = rate;
                options->high.Imply("--rate");
            },
            "The rate that a tone or list is looked at for; without it, 44100")
        ->transform(WholeIn(Rates, HiresSettings::LowestRate, HiresSettings::HighestRate))
        ->type_name("HZ")
        ->group(HiresOptions::Group);
    command->callback([options, &status] { status = Show(*options); });
}
