#include "cli/program.h"

#include <csignal>

// NOLINTNEXTLINE(bugprone-exception-escape): only options that are defined wrongly throw out of it
int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // a closed pipe is a write that falls short
    return RunCommandLine(argc, argv);
}
