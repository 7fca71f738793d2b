#pragma once

namespace CLI {
class App;
}

/// Adds `devices`, which lists the outputs that `play` can play on; its exit status goes to `status`.
void AddDevicesCommand(CLI::App& program, int& status);
