#pragma once

#include <optional>
#include <string>
#include <vector>

/// Runs another program, which is looked for in the search path, and waits for it to end; what it prints goes
/// where this program's output does. Returns its exit status, negative where it was ended by a signal or
/// could not be started; nothing where it is not installed.
std::optional<int> RunCommand(const std::string& program, const std::vector<std::string>& arguments);
