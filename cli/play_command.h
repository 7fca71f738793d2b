#pragma once

namespace CLI {
class App;
}

/// Adds `play`, which plays a tone or a WAVE file to its end or until it is interrupted; its exit status goes
/// to `status`.
void AddPlayCommand(CLI::App& program, int& status);
