#pragma once

#include "sound/sound_source.h"
#include "tone/tone_data.h"
#include "tone/wave_table.h"

#include <array>
#include <span>

struct ToneListReport;

/// All that tones, lists and the command line know of a waveform.
struct ToneWaveformRow {
    const char* szToneName; ///< as it is shown
    std::array<const char*, 3>
        typedNames;     ///< in small letters without blanks, the usual one first; null ends them
    bool hasComponents; ///< frequencies, levels, sweeps and channels apply to it
    int peak;           ///< of a component at 0 dB, in internal samples; 0 for noise and lists
    const ToneWaveTable& (*getTable)(); ///< one cycle of it; null where it is no table
    /// Opens its sound, played once; null where `SSTone` plays it. The report is a list's, and may be null.
    LSoundSource (*open)(const SonvireData& tone, ToneListReport* report);
};

/// One row for each `ToneWaveform`, in the order of their codes.
std::span<const ToneWaveformRow> GetWaveforms();
/// The largest sample of a component at 0 dB, 1 being full scale; 0 for noise and lists. A sine's is 0.25,
/// which is -12.04 dBFS.
double GetWaveformPeak(unsigned int code);

/// Null for an unknown code.
const ToneWaveformRow* FindWaveform(unsigned int code);
