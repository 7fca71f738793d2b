#pragma once

#include <string>

/// The folder that the program keeps its own files in, made where it is missing; without a "/" at its end.
std::string GetUserDataFolder();
