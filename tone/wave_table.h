#pragma once

#include <array>

/// One cycle of a waveform in internal samples, looked up by the top 15 bits of a phase.
inline constexpr int ToneWaveTableSize = 32768;
using ToneWaveTable = std::array<int, ToneWaveTableSize>;

/// The table of a periodic waveform (`ToneWaveform`); all zeros for impulses and for every other code. Peaks:
/// sine 131070, square 92682, triangular and saw tooth 165794. Each is filled once, by the first tone that
/// needs it, and shared by all: a table is never changed, so any thread may read it.
const ToneWaveTable& GetToneWaveTable(int waveform);
