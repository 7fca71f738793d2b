#include "cli/program.h"
#include "sys/file.h"

// NOLINTNEXTLINE(bugprone-exception-escape): only options that are defined wrongly throw out of it
int main(int argc, char** argv) {
    IgnoreWriteSignals();
    return RunCommandLine(argc, argv);
}
