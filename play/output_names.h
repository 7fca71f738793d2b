#pragma once

#include <string>
#include <vector>

/// Outputs are known by their names, in any case of letters.
bool IsSameOutputName(const std::string& name, const std::string& other);

/// The names, each of at most 259 bytes, with a number where an earlier one is the same: a second "USBDAC" is
/// "USBDAC (2)". No number makes a name that another has.
std::vector<std::string> TellApart(std::vector<std::string> names);
