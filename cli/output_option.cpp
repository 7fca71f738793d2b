#include "cli/output_option.h"

#include "sys/path.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

LFailure OutputOption::CheckFree() const {
    return noClobber && FileExists(path) ? "is there already, and stays (--no-clobber)" : LFailure();
}

CLI::Option* AddOutputOption(CLI::App& command, OutputOption& output, const char* what) {
    command.add_flag("--no-clobber", output.noClobber,
                     "Leave a file that is there already as it is, and fail");
    return command.add_option("OUTPUT", output.path, what);
}
