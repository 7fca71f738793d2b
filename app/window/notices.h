#pragma once

#include "sys/notice.h"

#include <vector>

/// Shows what there is to say, each in a box of its own.
void ShowNotice(const LNotice& notice);
/// Shows them in turn, until the user cancels one, and no more of them than anybody can be asked to close.
void ShowNotices(const std::vector<LNotice>& notices);
