#pragma once

#include "sys/failure.h"

#include <string>
#include <vector>

struct HiresRequest;
struct SonvireData;

/// What a file holds, as lines for people and as an object for scripts.
struct FileReport {
    struct Row {
        std::string label;
        std::string value;
    };

    LFailure failure;  ///< why the file can't be shown
    std::string title; ///< one line above the rows
    std::vector<Row> rows;
    std::string json; ///< the same as an object, for scripts

    /// The rows in two columns.
    std::string ToText() const;
};

/// Tones, lists and WAVE files, told apart by the extension in any case. With `high`, tones and lists are
/// shown as well as high quality has them, and any other file as a sound file of its own resolution.
FileReport ReportFile(const std::string& path, const HiresRequest* high = nullptr);

/// The same for a tone that needs no file.
FileReport ReportTone(const SonvireData& tone, const HiresRequest* high);
