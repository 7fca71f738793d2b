#pragma once

#include "sys/failure.h"

#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

/// The file that a command writes.
struct OutputOption {
    std::string path;
    bool noClobber = false;

    /// Whether it may be written: not where it is there and is to stay.
    LFailure CheckFree() const;
};

/// Adds OUTPUT, with what it is for, and `--no-clobber`. `output` must outlive the command.
CLI::Option* AddOutputOption(CLI::App& command, OutputOption& output, const char* what);
