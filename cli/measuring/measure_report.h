#pragma once

#include "cli/measuring/measure_check.h"
#include "cli/report_parts.h"

/// What was measured, as lines of up to 80 columns: a figure a line, a column for each channel, four of them
/// side by side; then the strongest lines of the spectrum, and how it was all measured.
std::string ReportMeasurement(const MeasuredSound& sound);

/// The same as an object for scripts, by docs/measure.schema.json: numbers in full, null for what the sound
/// does not have and for levels without an end, such as that of silence.
Json DescribeMeasurement(const MeasuredSound& sound);

/// What became of the limits, for that object.
Json DescribeLimits(const std::vector<MeasureLimit>& limits, const MeasuredSound& sound);
