#pragma once

#include <string>

class SonvireData;

// What went wrong with a file, in a message box that names it and the reason.

/// `otherwise` is the reason where the file itself can be read.
void ReportUnreadable(const std::string& path, const std::string& otherwise);
void ReportNotAdded(const std::string& path, const std::string& reason);
void ReportUnwritten(const std::string& path, const std::string& reason);

/// Reads a tone file; false, with a report, where it can't be read in full.
bool ReadToneFile(SonvireData& tone, const std::string& path);
