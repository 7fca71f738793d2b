#pragma once

#include <array>

/// One cycle of a waveform in internal samples, looked up by the top 15 bits of a phase.
inline constexpr int ToneWaveTableSize = 32768;
using ToneWaveTable = std::array<int, ToneWaveTableSize>;

/// Each table is filled once, by the first tone that needs it, and shared by all: it is never changed, so any
/// thread may read it. Peaks: 131070, 92682, 165794 and 165794.
const ToneWaveTable& GetSineTable();
const ToneWaveTable& GetSquareTable();
const ToneWaveTable& GetTriangularTable();
const ToneWaveTable& GetSawToothTable();
const ToneWaveTable& GetSilentTable();
