#pragma once

namespace CLI {
class App;
}

/// Adds `make`, which writes a tone described by options into a tone file; its exit status goes to `status`.
void AddMakeCommand(CLI::App& program, int& status);
