#pragma once

#include "cli/measuring/figure_changes.h"
#include "measure/frame_marks.h"

/// For a certificate: an object of hashes by the numbers of their frames.
Json DescribeMarks(const std::vector<FrameMark>& marks);
/// Nothing where they are damaged.
std::optional<std::vector<FrameMark>> ReadMarks(const Json& described);

/// Where frames were dropped or inserted, as marks that have moved tell. `longer` is by how many frames the
/// sound is longer than it was.
std::vector<FigureChange> NameMoves(const std::vector<FrameMark>& marks,
                                    const std::vector<std::optional<std::int64_t>>& shifts,
                                    std::int64_t longer);
