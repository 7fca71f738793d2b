#pragma once

#include <optional>
#include <string>
#include <vector>

std::string ToLower(std::string text);

/// The parts of a list such as 440,550,660; none for an empty text.
std::vector<std::string> SplitAtCommas(const std::string& text);

/// The whole text as a finite number.
std::optional<double> ParseNumber(const std::string& text);
