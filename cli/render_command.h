#pragma once

namespace CLI {
class App;
}

/// Adds `render`, which writes a tone or a WAVE file into a WAVE file; its exit status goes to `status`.
void AddRenderCommand(CLI::App& program, int& status);
