#pragma once

#include <string>

/// With so many places: "-12.0", "-inf"; never "-0.0".
std::string FormatFixed(double value, int places);
