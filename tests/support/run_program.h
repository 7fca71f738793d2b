#pragma once

#include "support/temp_dir.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

struct ProgramResult {
    int status;         ///< exit status; 128 + the signal where one ended it
    std::string output; ///< standard output
    std::string errors; ///< standard error
};

/// Starts a shell command, with its output in files of these names.
pid_t Spawn(const std::string& command, const std::string& out, const std::string& errors);
void EndProcess(pid_t process, int signal);

/// Runs a shell command and waits for it. `meanwhile` is called with its process id right after the start.
ProgramResult RunProgram(const std::string& command, const std::function<void(pid_t)>& meanwhile = {});

/// The same for sonvire-cli with these arguments.
ProgramResult RunCli(const std::string& arguments, const std::function<void(pid_t)>& meanwhile = {});

/// Expects that sonvire-cli has refused, in one line with these parts.
void ExpectRefused(const ProgramResult& result, const std::vector<std::string>& parts);
