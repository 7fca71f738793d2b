#include "cli/program.h"

#include "cli/commands.h"
#include "cli/help_format.h"
#include "cli/nearest.h"
#include "cli/refusal.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace {

/// What can be written where `command` was understood so far.
std::vector<std::string> ListNames(const CLI::App& command, bool options) {
    std::vector<std::string> names;
    if (options)
        for (const CLI::Option* option : command.get_options())
            for (const std::string& name : option->get_lnames())
                names.push_back("--" + name);
    else
        for (const CLI::App* each : command.get_subcommands({}))
            names.push_back(each->get_name());
    return names;
}

std::string Join(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

/// Says what was not understood, and what it may have been meant to be.
int RefuseLeftovers(const CLI::App& program) {
    const std::vector<std::string> left = program.remaining(true);
    const auto chosen = program.get_subcommands();
    const CLI::App& command = chosen.empty() ? program : *chosen.front();
    const std::string& first = left.front();
    const bool isOption = first.starts_with('-');
    const std::string nearest = FindNearest(first, ListNames(command, isOption));
    const std::string kind = isOption         ? "no such option"
                             : chosen.empty() ? "no such command"
                                              : "not expected";
    return Misuse(first + ": " + kind + (nearest.empty() ? "" : "; did you mean " + nearest + "?"));
}

} // namespace

int RunCommandLine(int argc, const char* const* argv) {
    CLI::App program("Sonvire generates test tones.", "sonvire-cli");
    program.set_version_flag("--version", "sonvire-cli " SONVIRE_VERSION);
    program.require_subcommand(0, 1);
    int status = ExitCompleted;
    AddRenderCommand(program, status);
    AddMakeCommand(program, status);
    AddListCommand(program, status);
    AddShowCommand(program, status);
#ifdef SONVIRE_PLAYS
    AddPlayCommand(program, status);
    AddDevicesCommand(program, status);
#endif
    FormatHelp(program);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
            return program.exit(error); // --help and --version
        if (program.remaining_size(true) > 0)
            return RefuseLeftovers(program);
        return Misuse(error.what());
    }
    if (program.get_subcommands().empty())
        return Misuse("a command is required: " + Join(ListNames(program, false)));
    return status;
}
