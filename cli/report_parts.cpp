#include "cli/report_parts.h"

#include <algorithm>
#include <cstdio>

std::string WriteJson(const Json& object) {
    return object.dump(4, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json DescribeType(const char* type) {
    return {{"type", type}, {"version", 1}};
}

std::string FormatClock(std::int64_t duration) {
    const long long ms = std::max<std::int64_t>(0, duration);
    char text[64];
    std::snprintf(text, sizeof text, "%02lld:%02lld.%03lld", ms / 60000, ms / 1000 % 60, ms % 1000);
    return text;
}

FileReport RefusedReport(LFailure failure) {
    return {.failure = std::move(failure), .title = {}, .rows = {}, .json = {}};
}
