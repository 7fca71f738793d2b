#pragma once

#include "hires/hires_source.h"
#include "sound/source_news.h"
#include "sys/failure.h"

#include <memory>
#include <optional>
#include <string>

/// A sound file that was opened, or why it can't be.
struct HiresFileInput {
    HiresSourcePtr source; ///< null with a failure
    LFailure failure{};
};

/// Opens any sound file that libsndfile reads, at its full resolution, in mono or stereo; each part that is
/// left open is the file's own. At another rate it is converted by `HiresRateConverter`. What becomes mono is
/// the mean of both sides, unlike in the standard quality, which adds them: so nothing is clipped.
///
/// The file is open only while it is being read, from its first frame to its last, so that thousands can
/// wait; `Read` opens it. `news` is told where it is not to be had then or has changed, of which silence
/// plays, and, as no loss, where it exceeds full scale, which is clipped: a float may, and so may what an
/// integer becomes at another rate, which only reading it shows.
HiresFileInput OpenHiresFile(const std::string& path, std::optional<int> rate, std::optional<int> channels,
                             std::shared_ptr<LSourceNews> news);
