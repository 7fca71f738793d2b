#include "sound/kernels/kernel_set.h"

#include <cstring>

// Each filter waits for its own last output; two stand in a register. The additions need not wait as well:
// those of two frames are done at once, in the order that holds for each.

namespace KERNEL_ISA {

namespace {

using Pair = double __attribute__((vector_size(2 * sizeof(double))));
using PairOfInts = int __attribute__((vector_size(2 * sizeof(int))));

constexpr int Pairs = LOnePoles::Count / 2;

/// One number for each filter.
struct Six {
    [[gnu::always_inline]] explicit Six(const double* from) { std::memcpy(pairs, from, sizeof pairs); }

    Pair pairs[Pairs];
};

[[gnu::always_inline]] inline void MoveOn(Six& outputs, const Six& poles, const Six& gains, double input) {
    for (int i = 0; i < Pairs; ++i)
        outputs.pairs[i] = poles.pairs[i] * outputs.pairs[i] + gains.pairs[i] * input;
}

/// The outputs of each of two frames, added up.
[[gnu::always_inline]] inline Pair AddUp(const Six& a, const Six& b) {
    Pair sums = __builtin_shufflevector(a.pairs[0], b.pairs[0], 0, 2);
    sums += __builtin_shufflevector(a.pairs[0], b.pairs[0], 1, 3);
    for (int i = 1; i < Pairs; ++i) {
        sums += __builtin_shufflevector(a.pairs[i], b.pairs[i], 0, 2);
        sums += __builtin_shufflevector(a.pairs[i], b.pairs[i], 1, 3);
    }
    return sums;
}

} // namespace

void Filter(const LOnePoles& filters, LOnePoles::State& state, const double* in, int* out, int count) {
    const Six poles(filters.poles), gains(filters.gains);
    Six outputs(state.outputs);
    for (int i = 0; i < count; i += 2) {
        const bool isLast = i + 1 == count;
        const Pair inputs = {in[i], isLast ? 0 : in[i + 1]}, before = {state.input, in[i]};
        MoveOn(outputs, poles, gains, inputs[0]);
        const Six first = outputs;
        if (!isLast)
            MoveOn(outputs, poles, gains, inputs[1]);
        const Pair sums = AddUp(first, outputs) + filters.delayed * before + filters.direct * inputs;
        const auto whole = __builtin_convertvector(sums, PairOfInts);
        out[i] = whole[0];
        if (!isLast)
            out[i + 1] = whole[1];
        state.input = isLast ? inputs[0] : inputs[1];
    }
    std::memcpy(state.outputs, outputs.pairs, sizeof state.outputs);
}

} // namespace KERNEL_ISA
