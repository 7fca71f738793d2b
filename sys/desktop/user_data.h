#pragma once

#include <string>

/// The folder that the program keeps its own files in, made where it is missing; without a "/" at its end.
std::string GetUserDataFolder();

/// The folder below which all programs keep the user's data, and where desktops look for what is there for
/// this user; without a "/" at its end. It may be missing.
std::string GetUserSharedDataFolder();
