#pragma once

namespace CLI {
class App;
}

/// Makes the help of a program and of its commands fit 80 columns.
void FormatHelp(CLI::App& program);
