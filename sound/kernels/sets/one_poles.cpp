#include "sound/kernels/kernel_set.h"

#include <cstring>
#include <limits>

// Each filter waits for its own last output. The additions need not wait as well: those of four frames are
// done at once, in the order that holds for each.

namespace KERNEL_ISA {

namespace {

using Four = double __attribute__((vector_size(4 * sizeof(double))));
using FourInts = int __attribute__((vector_size(4 * sizeof(int))));

constexpr int Group = 4; // frames
constexpr double Lowest = std::numeric_limits<int>::min(), Highest = std::numeric_limits<int>::max();

/// One number for each filter; the last two of `back` are not used.
struct Six {
    [[gnu::always_inline]] explicit Six(const double* from)
        : front{from[0], from[1], from[2], from[3]},
          back{from[4], from[5]} {}

    [[gnu::always_inline]] void Store(double* to) const {
        std::memcpy(to, &front, sizeof front);
        std::memcpy(to + 4, &back, 2 * sizeof(double));
    }

    Four front, back;
};

[[gnu::always_inline]] inline void MoveOn(Six& outputs, const Six& poles, const Six& gains, double input) {
    outputs.front = poles.front * outputs.front + gains.front * input;
    outputs.back = poles.back * outputs.back + gains.back * input;
}

/// The outputs of each of four frames, added up.
[[gnu::always_inline]] inline void AddUp(const Six (&frames)[Group], Four& sums) {
    const auto& [a, b, c, d] = frames;
    const Four evenAB = __builtin_shufflevector(a.front, b.front, 0, 4, 2, 6);
    const Four evenCD = __builtin_shufflevector(c.front, d.front, 0, 4, 2, 6);
    const Four oddAB = __builtin_shufflevector(a.front, b.front, 1, 5, 3, 7);
    const Four oddCD = __builtin_shufflevector(c.front, d.front, 1, 5, 3, 7);
    const Four backAB = __builtin_shufflevector(a.back, b.back, 0, 4, 1, 5);
    const Four backCD = __builtin_shufflevector(c.back, d.back, 0, 4, 1, 5);
    sums = __builtin_shufflevector(evenAB, evenCD, 0, 1, 4, 5);
    sums += __builtin_shufflevector(oddAB, oddCD, 0, 1, 4, 5);
    sums += __builtin_shufflevector(evenAB, evenCD, 2, 3, 6, 7);
    sums += __builtin_shufflevector(oddAB, oddCD, 2, 3, 6, 7);
    sums += __builtin_shufflevector(backAB, backCD, 0, 1, 4, 5);
    sums += __builtin_shufflevector(backAB, backCD, 2, 3, 6, 7);
}

int Truncate(double value) {
    return static_cast<int>(value < Lowest ? Lowest : value > Highest ? Highest : value);
}

[[gnu::always_inline]] inline void Truncate(const Four& values, int* out) {
    constexpr Four lowest = {Lowest, Lowest, Lowest, Lowest}, highest = {Highest, Highest, Highest, Highest};
    const Four above = values < lowest ? lowest : values;
    const FourInts whole = __builtin_convertvector(above > highest ? highest : above, FourInts);
    std::memcpy(out, &whole, sizeof whole);
}

} // namespace

void Filter(const LOnePoles& filters, LOnePoles::State& state, const double* in, int* out, int count) {
    const Six poles(filters.poles), gains(filters.gains);
    Six outputs(state.outputs);
    int i = 0;
    const auto filterOne = [&] {
        const double before = i == 0 ? state.input : in[i - 1];
        MoveOn(outputs, poles, gains, in[i]);
        const Four& front = outputs.front;
        out[i] = Truncate(front[0] + front[1] + front[2] + front[3] + outputs.back[0] + outputs.back[1] +
                          filters.delayed * before + filters.direct * in[i]);
        ++i;
    };
    if (count > 0)
        filterOne();
    while (i + Group <= count) {
        Six frames[Group] = {outputs, outputs, outputs, outputs};
        for (int k = 0; k < Group; ++k) {
            MoveOn(outputs, poles, gains, in[i + k]);
            frames[k] = outputs;
        }
        Four sums, inputs, before;
        AddUp(frames, sums);
        std::memcpy(&inputs, in + i, sizeof inputs);
        std::memcpy(&before, in + i - 1, sizeof before);
        Truncate(sums + filters.delayed * before + filters.direct * inputs, out + i);
        i += Group;
    }
    while (i < count)
        filterOne();
    outputs.Store(state.outputs);
    if (count > 0)
        state.input = in[count - 1];
}

} // namespace KERNEL_ISA
