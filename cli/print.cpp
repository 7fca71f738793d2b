#include "cli/print.h"

#include "cli/refusal.h"

#include <cstdio>

int PrintAll(const std::string& text) {
    // What is more than the buffer holds is written by the first of both.
    const bool isWritten = std::fputs(text.c_str(), stdout) >= 0;
    return std::fflush(stdout) == 0 && isWritten ? ExitCompleted
                                                 : Refuse("standard output", "could not be written");
}
