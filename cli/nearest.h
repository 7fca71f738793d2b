#pragma once

#include <string>
#include <vector>

/// The one of these names that `typed` is most likely to mean; empty where it is like none of them.
std::string FindNearest(const std::string& typed, const std::vector<std::string>& names);
