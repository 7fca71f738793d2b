#include "cli/program.h"

#include "cli/commands.h"
#include "cli/help_format.h"
#include "cli/nearest.h"
#include "cli/print.h"
#include "cli/refusal.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string_view>

namespace {

struct Command {
    std::string_view name;
    void (*add)(CLI::App& program, int& status);
};
constexpr Command Commands[] = {
    {"render", AddRenderCommand},   {"make", AddMakeCommand}, {"list", AddListCommand},
    {"show", AddShowCommand},
#ifdef SONVIRE_PLAYS
    {"measure", AddMeasureCommand}, {"play", AddPlayCommand}, {"devices", AddDevicesCommand},
#endif
};

/// Adds the command that is asked for, which then starts without setting up the options of the others; all of
/// them where it is none.
void AddCommands(CLI::App& program, std::string_view asked, int& status) {
    const auto* const found = std::find_if(std::begin(Commands), std::end(Commands),
                                           [asked](const Command& each) { return each.name == asked; });
    if (found != std::end(Commands))
        return found->add(program, status);
    for (const Command& each : Commands)
        each.add(program, status);
}

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

/// What `--help` and `--version` ask for.
std::string GetHelp(const CLI::App& program, const CLI::ParseError& asked) {
    std::ostringstream help;
    program.exit(asked, help);
    return help.str();
}

} // namespace

int RunCommandLine(int argc, const char* const* argv) {
    CLI::App program("Sonvire generates test tones.", "sonvire-cli");
    program.set_version_flag("--version", "sonvire-cli " SONVIRE_VERSION);
    program.require_subcommand(0, 1);
    int status = ExitCompleted;
    AddCommands(program, argc > 1 ? argv[1] : "", status);
    FormatHelp(program);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
            return PrintAll(GetHelp(program, error));
        if (program.remaining_size(true) > 0)
            return RefuseLeftovers(program);
        return Misuse(error.what());
    }
    if (program.get_subcommands().empty())
        return Misuse("a command is required: " + Join(ListNames(program, false)));
    return status;
}
