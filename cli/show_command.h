#pragma once

namespace CLI {
class App;
}

/// Adds `show`, which prints what a tone, a tone list or a WAVE file holds; its exit status goes to `status`.
void AddShowCommand(CLI::App& program, int& status);
