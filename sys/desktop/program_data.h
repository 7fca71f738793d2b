#pragma once

#include <string>

/// The file that the running program was started from, as an absolute path.
std::string GetProgramPath();

/// The folder of what came with the program, such as "sonvire/help/index.html" in it: `share` beside the
/// folder that the running program's file is in, installed or not. Without a "/" at its end.
std::string GetSharedDataFolder();
