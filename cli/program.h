#pragma once

/// Runs sonvire-cli with the arguments of a process; returns its exit status.
int RunCommandLine(int argc, const char* const* argv);
