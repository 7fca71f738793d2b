#pragma once

#include "hires/files/sndfile_library.h"

/// How many frames a file that is cut short lacks, of those that its header tells; 0 where that can't be
/// known. libsndfile keeps silent about them but for its log, which it writes when it opens the file.
sf_count_t CountMissingFrames(SNDFILE* file, const SF_INFO& info);
