#pragma once

#include "tone/tone_list_report.h"

/// As `ExamineToneList`, for high quality: a list plays sound files of any kind then, and leaves out what
/// can't be read.
ToneListReport ExamineHiresList(const std::string& path);

/// The same for a list of this one line; its first entry is what stands there.
ToneListReport ExamineHiresListEntry(const std::string& line);
