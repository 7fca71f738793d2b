#pragma once

#include <string>

/// The text of a desktop entry, changed so that it starts `program`, an absolute path, with the file to open.
std::string WithProgram(const std::string& entry, const std::string& program);
