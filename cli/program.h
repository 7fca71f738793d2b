#pragma once

/// Runs sonvire-cli with the arguments of a process; answers its exit status.
int RunCommandLine(int argc, const char* const* argv);
