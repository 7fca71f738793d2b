#pragma once

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <optional>
#include <string>
#include <vector>

std::string ToLower(std::string text);

/// The parts of a list such as 440,550,660; none for an empty text.
std::vector<std::string> SplitAtCommas(const std::string& text);

/// Refuses what is not a plain decimal number of this range (other notations read as octal or hexadecimal).
CLI::Validator DecimalIn(int lowest, int highest);

/// The whole text as a finite number.
std::optional<double> ParseNumber(const std::string& text);
