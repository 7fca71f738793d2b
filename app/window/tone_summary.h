#pragma once

#include "app/quality.h"
#include "tone/tone_data.h"

#include <string>

/// What a tone is, in plain words of a line each.
struct ToneSummary {
    std::string headline; ///< what is heard: "1000 Hz · B5 +21 ct", "20 Hz to 20 kHz", "White Noise"
    std::string kind;     ///< "Sine, mono, endless"
    std::string level;    ///< "Peak -12.04 dBFS"; empty where it is not known, as of noise
    std::string keys;     ///< the few that matter for it
};

/// "10 s, looped", "endless"; by what the tone says of itself, which a list need not be.
std::string DescribeLength(const SonvireData& tone);

/// As it plays in a quality. Reads the file of a list, and looks through the entries.
ToneSummary SummarizeTone(const SonvireData& tone, const Quality& quality);
