#include "app/window/saved_note.h"

#include "sys/path.h"
#include "tone/tone_level.h"

#include <cstdio>

std::string DescribeSavedSound(const std::string& path, std::optional<double> seconds,
                               std::optional<double> peakDbfs) {
    char length[64] = "endless";
    if (seconds)
        std::snprintf(length, sizeof length, "%.3f s", *seconds);
    return "Saved " + GetFileName(path) + " in " + GetFolder(path) + ": " + length +
           (peakDbfs ? ", peak " + FormatDbfs(*peakDbfs) : "");
}

std::string DescribeSavedTone(const std::string& path, const SonvireData& tone) {
    const bool ends = tone.HasFlag(ToneFlagDuration);
    return DescribeSavedSound(path, ends ? std::optional(tone.durationMs / 1000.0) : std::nullopt,
                              GetHighestPeakDbfs(tone));
}
