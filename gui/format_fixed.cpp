#include "gui/format_fixed.h"

#include <cmath>
#include <cstdio>

std::string FormatFixed(double value, int places) {
    char text[64];
    const double unit = std::pow(10, places);
    std::snprintf(text, sizeof text, "%.*f", places, std::round(value * unit) / unit + 0.0);
    return text;
}
