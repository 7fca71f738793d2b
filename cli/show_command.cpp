#include "cli/commands.h"

#include "cli/file_report.h"
#include "cli/refusal.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <cstdio>
#include <memory>

namespace {

struct ShowOptions {
    std::string input;
    bool json = false;
};

int Show(const ShowOptions& options) {
    const FileReport report = ReportFile(options.input);
    if (report.failure)
        return Refuse(options.input, report.failure.GetReason());
    const std::string text = options.json ? report.json : report.ToText();
    std::fputs(text.c_str(), stdout);
    return std::fflush(stdout) == 0 ? ExitCompleted : Refuse("standard output", "could not be written");
}

} // namespace

void AddShowCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App* command = program.add_subcommand("show", "Print what a tone, a tone list or a WAVE file holds");
    command->add_option("INPUT", options->input, "A tone (.tdf), a tone list (.tdl) or a WAVE file (.wav)")
        ->required();
    command->add_flag("--json", options->json, "Print JSON, for scripts");
    command->callback([options, &status] { status = Show(*options); });
}
