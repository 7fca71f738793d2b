#pragma once

#include <span>
#include <string>
#include <vector>

/// What a level meter is given, some ten times a second.
struct LMeterLevels {
    std::vector<double> peaks; ///< of each channel in dBFS: 0 is full scale, minus infinity silence
    double limiter = 0;        ///< the most that a limiter has taken off, in dB: at most 0

    bool operator==(const LMeterLevels&) const = default;
};

/// A level that rises at once, stays for its hold time, and then falls at 40 dB a second.
class LFallingLevel {
public:
    LFallingLevel(double least, int holdMilliseconds);

    void Take(double next);
    void Advance(int milliseconds);

    double Get() const { return shown; }
    bool IsMoving() const { return shown > level; }

private:
    double floor, level, shown;
    int hold;
    int age = 0; ///< milliseconds since what is shown was reached
};

/// What a level meter shows, in dBFS: for each channel a bar and the peak that it has had, and how much the
/// limiter takes off.
class LLevelMeter {
public:
    static constexpr double Least = -60;
    static constexpr double Loud = -6; ///< from here on a bar warns
    static constexpr int HoldMs = 1500;

    struct Channel {
        LFallingLevel bar{Least, 0};
        LFallingLevel peak{Least, HoldMs};
    };

    void Take(const LMeterLevels& levels);
    void Advance(int milliseconds);
    /// Until then nothing changes but by `Take`.
    bool IsMoving() const;

    const std::vector<Channel>& GetChannels() const { return channels; }
    /// True while, and a little after, it takes off what can be told.
    bool IsLimiting() const;
    /// What it takes off, in dB.
    double GetReduction() const { return reduction.Get(); }
    /// "left -12.0 dBFS, right -inf dBFS, Limiter -3.2 dB" with as many places.
    std::string Describe(int places) const;

    /// Where marks stand, from the least to full scale.
    static std::span<const double> GetMarks();
    /// The place of a level on the scale, in [0, 1].
    static double GetPlace(double decibels);
    /// True of what is told as 0.0 dBFS, and above.
    static bool IsFull(double decibels);

private:
    LMeterLevels last{.peaks = {}};
    std::vector<Channel> channels = std::vector<Channel>(2);
    LFallingLevel reduction{0, HoldMs}; ///< what the limiter takes off, as a positive number
};
