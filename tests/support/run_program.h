#pragma once

#include <functional>
#include <string>
#include <sys/types.h>

struct ProgramResult {
    int status;         ///< exit status; 128 + the signal where one ended it
    std::string output; ///< standard output
    std::string errors; ///< standard error
};

/// Runs a shell command and waits for it. `meanwhile` is called with its process id right after the start.
ProgramResult RunProgram(const std::string& command, const std::function<void(pid_t)>& meanwhile = {});

/// The same for sonvire-cli with these arguments.
ProgramResult RunCli(const std::string& arguments, const std::function<void(pid_t)>& meanwhile = {});
