#pragma once

#include "cli/file_report.h"

#include <nlohmann/json.hpp>

#include <cstdint>

// What all reports are made of.

using Json = nlohmann::ordered_json;

/// File names need not be proper UTF-8; what isn't is replaced.
std::string WriteJson(const Json& object);
/// What every object begins with. The version grows where something is taken out or changes its meaning.
Json DescribeType(const char* type);
/// mm:ss.mmm
std::string FormatClock(std::int64_t ms);
FileReport RefusedReport(LFailure failure);
