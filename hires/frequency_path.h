#pragma once

#include "hires/block.h"

#include <array>
#include <cstdint>

/// Where in its cycle an oscillator is at each frame of a block, and how fast it moves.
struct HiresPhases {
    std::array<std::uint64_t, HiresBlockFrames> phases; ///< 2^64 are a cycle
    std::array<double, HiresBlockFrames> partsOfRate;   ///< the frequency, without its sign
};

/// The frequency of an oscillator from frame to frame: steady, or moving at every frame, in a straight line
/// or by the same ratio each time, again and again. Over a frame the phase moves by the integral of the
/// frequency, so that a sweep is where it is by its formula: after the time t of T, f0 t + (f1 - f0) t^2 / 2T
/// cycles, or f0 T / ln(f1/f0) ((f1/f0)^(t/T) - 1). It is counted with 64 bits more than the phase: a sweep
/// of hours ends within a millionth of a cycle.
class HiresFrequencyPath {
public:
    enum class Sweep { None, Linear, Logarithmic };

    /// Frequencies may be any number; what is not finite counts as 0. A logarithmic sweep needs two of the
    /// same sign that are not 0, else the frequency stays where it starts; from one frame to the next it
    /// moves by half of itself at most. `frames` is how long the sweep takes, at least 1; then it begins
    /// anew, but the phase goes on.
    HiresFrequencyPath(double startHz, double endHz, Sweep sweep, std::int64_t frames, int rate);

    bool IsSteady() const { return sweep == Sweep::None; }
    /// What to add to the phase for each frame where it is steady.
    std::uint64_t GetIncrement() const;
    /// The lowest and the highest frequency, without the sign, as a part of the rate.
    double GetLeast() const;
    double GetMost() const;
    /// The next block.
    void Read(HiresPhases& out);

private:
    using Wide = __int128;
    /// Of a move, behind those that multiply it.
    static constexpr int FineBits = 64;

    void MoveOn();

    Sweep sweep = Sweep::None;
    std::array<double, 2> ends; ///< parts of the rate
    int rateBits;               ///< a move of 2^(rateBits + FineBits) is a cycle for each frame
    Wide start, move = 0;
    unsigned __int128 phase = 0; ///< as a move
    std::int64_t frames, left;   ///< of the sweep
    Wide step = 0;               ///< linear: added each time
    std::int64_t growth = 0; ///< logarithmic: growth / 2^(64 + growthShift) of the move is added each time
    int growthShift = 0;
};
