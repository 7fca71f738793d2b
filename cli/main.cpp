#include "devices_command.h"
#include "make_command.h"
#include "play_command.h"
#include "printed_messages.h"
#include "refusal.h"
#include "render_command.h"
#include "show_command.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <csignal>

// NOLINTNEXTLINE(bugprone-exception-escape): only options that are defined wrongly throw out of it
int main(int argc, char** argv) {
    CLI::App program("Sonvire generates test tones.", "sonvire-cli");
    program.set_version_flag("--version", "sonvire-cli " SONVIRE_VERSION);
    program.require_subcommand(1);
    int status = ExitCompleted;
    AddRenderCommand(program, status);
    AddMakeCommand(program, status);
    AddShowCommand(program, status);
    AddPlayCommand(program, status);
    AddDevicesCommand(program, status);
    PrintedMessages messages;

    std::signal(SIGPIPE, SIG_IGN); // a closed pipe is a write that falls short
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
            return program.exit(error); // --help and --version
        return Misuse(error.what());
    }
    return status;
}
