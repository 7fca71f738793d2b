#pragma once

namespace CLI {
class App;
}

// Each adds a command to the program; once it has run, its exit status stands in `status`.

/// `render` writes a tone, a list or a WAVE file into a WAVE file.
void AddRenderCommand(CLI::App& program, int& status);
/// `make` writes a tone described by options into a tone file.
void AddMakeCommand(CLI::App& program, int& status);
/// `list` writes a tone list.
void AddListCommand(CLI::App& program, int& status);
/// `show` prints what a tone, a list or a WAVE file holds.
void AddShowCommand(CLI::App& program, int& status);
/// `measure` prints the figures of a tone, a list or a sound file, and holds them against limits.
void AddMeasureCommand(CLI::App& program, int& status);
/// `play` plays a tone, a list or a WAVE file to its end or until it is interrupted.
void AddPlayCommand(CLI::App& program, int& status);
/// `devices` lists the outputs that `play` can play on.
void AddDevicesCommand(CLI::App& program, int& status);
