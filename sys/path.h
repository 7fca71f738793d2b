#pragma once

#include <set>
#include <string>

// Paths as texts, and what stands at them.

/// The folder part, "." where there is none.
std::string GetFolder(const std::string& path);
/// What stands behind the last "/".
std::string GetFileName(const std::string& path);
/// The file name's extension with its dot, such as ".tdf"; empty without one.
std::string GetExtension(const std::string& path);
/// True where the file name ends in this extension, in small letters and with its dot; in any case.
bool HasExtension(const std::string& path, const char* extension);

bool FileExists(const std::string& path);
/// True where both paths lead to one existing file, whatever links lie between.
bool IsSameFile(const std::string& path, const std::string& otherPath);
/// The same for any of many.
bool IsOneOfFiles(const std::string& path, const std::set<std::string>& others);
