#pragma once

#include "hires/file_facts.h"

class HiresSoundStream;

/// Reads the header of any sound file that libsndfile reads. Thread: any. Blocks, allocates: yes.
HiresFileFacts ReadHiresFacts(const std::string& path);
/// The same of one that is open; none of its frames are counted.
HiresFileFacts DescribeSoundStream(const HiresSoundStream& stream);
