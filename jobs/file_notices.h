#pragma once

#include "sys/failure.h"
#include "sys/notice.h"

// What went wrong with a file, as a notice that names it and the reason.

LNotice DescribeUnreadable(const std::string& path, const LFailure& failure);
LNotice DescribeNotAdded(const std::string& path, const LFailure& failure);
LNotice DescribeUnwritten(const std::string& path, const LFailure& failure);
/// For a reason that says what it is that failed, such as "could not be written in full".
LNotice DescribeFailed(const std::string& path, const LFailure& failure);
