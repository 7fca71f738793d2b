#pragma once

#include "hires/tone_source.h"
#include "sound/source_news.h"

#include <memory>
#include <optional>
#include <string>

/// Opens any sound file that libsndfile reads, at its full resolution, in mono or stereo; at another rate
/// than its own it is converted by `HiresRateConverter`.
///
/// The file is open only while it is being read, from its first frame to its last, so that thousands can
/// wait; `Read` opens it. `news` is told where it is not to be had then or has changed, of which silence
/// plays. As no loss, it is told where the file lacks what its header promises, which is silent, and where it
/// exceeds full scale, which is clipped: a float may, and so may what an integer becomes at another rate.
HiresTone OpenHiresFile(const std::string& path, std::optional<int> rate, std::shared_ptr<LSourceNews> news);
