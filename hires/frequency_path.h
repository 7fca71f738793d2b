#pragma once

#include <cstdint>

/// The frequency of an oscillator from frame to frame: steady, or moving at every frame, in a straight line
/// or by the same ratio each time. As a phase increment, of which 2^64 are a cycle, with 32 more bits behind
/// it: a sweep of hours ends within a millionth of a cycle.
class HiresFrequencyPath {
public:
    enum class Sweep { None, Linear, Logarithmic };

    HiresFrequencyPath() = default;
    /// Frequencies may be any number; what is not finite counts as 0. A logarithmic sweep needs two of the
    /// same sign that are not 0, else the frequency stays where it starts. `frames` is how long the sweep
    /// takes, at least 1.
    HiresFrequencyPath(double startHz, double endHz, Sweep sweep, std::int64_t frames, int rate);

    /// What to add to the phase for the next frame.
    std::uint64_t GetIncrement() const { return static_cast<std::uint64_t>(increment >> Fine); }
    /// The same as a part of the rate, -0.5..0.5 for what can be heard, without the sign.
    double GetPartOfRate() const;
    void MoveOn();
    /// Back to the start.
    void Restart() { increment = start; }
    bool IsSteady() const { return sweep == Sweep::None; }

private:
    using Wide = __int128;
    static constexpr int Fine = 32;

    Wide start = 0, increment = 0;
    Sweep sweep = Sweep::None;
    Wide step = 0;           ///< linear: added each time
    std::int64_t growth = 0; ///< logarithmic: growth / 2^growthBits of the increment is added each time
    int growthBits = 0;
};
