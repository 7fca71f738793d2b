#include "cli/program.h"

#include "cli/commands.h"
#include "cli/refusal.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

int RunCommandLine(int argc, const char* const* argv) {
    CLI::App program("Sonvire generates test tones.", "sonvire-cli");
    program.set_version_flag("--version", "sonvire-cli " SONVIRE_VERSION);
    program.require_subcommand(1);
    int status = ExitCompleted;
    AddRenderCommand(program, status);
    AddMakeCommand(program, status);
    AddListCommand(program, status);
    AddShowCommand(program, status);
#ifdef SONVIRE_PLAYS
    AddPlayCommand(program, status);
    AddDevicesCommand(program, status);
#endif
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
            return program.exit(error); // --help and --version
        return Misuse(error.what());
    }
    return status;
}
