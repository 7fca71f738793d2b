#pragma once

#include "sys/failure.h"
#include "sys/notice.h"

#include <vector>

struct LFileWarning;

// What went wrong with a file, as a notice that names it and the reason, or its folder where that is missing.

LNotice DescribeUnreadable(const std::string& path, const LFailure& failure);
LNotice DescribeNotAdded(const std::string& path, const LFailure& failure);
LNotice DescribeUnwritten(const std::string& path, const LFailure& failure);
/// Of a list that is not saved.
LNotice DescribeNoTemporary(const LFailure& failure);
/// For a reason that says what it is that failed, such as "could not be written in full".
LNotice DescribeFailed(const std::string& path, const LFailure& failure);

/// What to add to a sentence that leads to them: each file with its reason in a paragraph of its own, the
/// first few of them, and how many there are more.
std::string ListWarnings(const std::vector<LFileWarning>& warnings);
