#pragma once

#include <string>

// Folders and files of the program and its user. Paths are absolute, and folders have no "/" at their end.

/// The file that the running program was started from.
std::string GetProgramPath();

/// The folder of what came with the program, such as "sonvire/help/index.html" in it: `share` beside the
/// folder that the running program's file is in, installed or not.
std::string GetSharedDataFolder();

/// The folder that the program keeps its own files in, made where it is missing.
std::string GetUserDataFolder();

/// The folder below which all programs keep the user's data, and where desktops look for what is there for
/// this user. It may be missing.
std::string GetUserSharedDataFolder();

/// The address of a local file, "file:///..." with what an address can't hold percent-encoded.
std::string MakeFileUrl(const std::string& path);
