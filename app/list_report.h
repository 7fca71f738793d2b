#pragma once

#include "tone/tone_list_report.h"

// What is found in a list, or in a single line, as it plays in the quality that the settings name.

ToneListReport ExamineList(const std::string& path);
ToneListReport ExamineListLine(const std::string& line);
