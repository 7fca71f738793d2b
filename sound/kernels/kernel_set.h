#pragma once

#include "sound/kernels/kernels.h"

// One set of kernels. The files in sets/ are built once for every instruction set, each time in the namespace
// KERNEL_ISA. Functions of other headers that they use are forced inline: the linker could otherwise keep a
// copy of them that needs the newer instructions.

namespace KERNEL_ISA {

int GetPeak(const int* samples, int count);
void ApplyGainLine(int* out, const int* in, int frames, int channels, int gain, int step);
void Widen(int* out, const std::int16_t* in, int count);
void Narrow(std::int16_t* out, const int* in, int count);
bool Pack(int* samples, int frames, int shift, const LChannelSamples& negated);
void Convolve(const LPolyphaseRun& run, int phase, const LChannelSamples& negated, int* out, int frames);
void Filter(const LOnePoles& filters, LOnePoles::State& state, const double* in, int* out, int count);
void AddTurned(std::int64_t* sums, const LTurn& turn, int count);
bool RoundSums(std::int32_t* out, const std::int64_t* sums, int count, int shift);
void Pack24(char* out, const std::int32_t* samples, int count);

} // namespace KERNEL_ISA
