#pragma once

#include "hires/file_facts.h"

/// Reads the header of any sound file that libsndfile reads. Thread: any. Blocks, allocates: yes.
HiresFileFacts ReadHiresFacts(const std::string& path);
