#pragma once

#include <string>

/// What every command returns: the job's result, which is also the program's exit status.
enum ExitStatus : int {
    ExitCompleted = 0,
    ExitStopped = 1, ///< by the user
    ExitBroken = 1,  ///< `measure`: a limit; there a stop counts as failed
    ExitFailed = 2,  ///< failed, refused or misused
};

/// A file's name may hold anything; what goes to a terminal is one line without control characters.
std::string Printable(std::string name);

/// Prints one line on standard error that names the file and what there is to say of it.
void Tell(const std::string& file, const std::string& what);

/// The same for a reason to fail; returns `ExitFailed`.
int Refuse(const std::string& file, const std::string& reason);

/// The same for a command line that makes no sense.
int Misuse(const std::string& reason);

/// Prints a line of the same form, for what can be gone on with.
void Warn(const std::string& file, const std::string& reason);
