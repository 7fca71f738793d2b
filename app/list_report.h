#pragma once

#include "app/quality.h"
#include "tone/tone_list_report.h"

// What is found in a list, or in a single line, as it plays in a quality.

ToneListReport ExamineList(const std::string& path, const Quality& quality = GetQuality());
ToneListReport ExamineListLine(const std::string& line, const Quality& quality);
