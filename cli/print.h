#pragma once

#include <string>

/// Prints a text on standard output, to its end; returns the exit status.
int PrintAll(const std::string& text);
