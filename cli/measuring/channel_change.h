#pragma once

#include "cli/measuring/measure_figures.h"
#include "cli/report_parts.h"

#include <optional>

/// How long a sound is that was measured before and now.
struct Extent {
    Extent(const Json& before, const Json& now);

    double frames, rate;
    double missing; ///< frames that it had before; below 0, those that it has more
};

/// How what was measured of a channel before compares to what is now, in texts such as "0.10 dB lower: ...";
/// they are empty where both are alike. Both measurements must outlive it.
class ChannelChange {
public:
    ChannelChange(const Json& channelBefore, const Json& channelNow, const Extent& extentNow)
        : before(channelBefore),
          now(channelNow),
          extent(extentNow) {}

    /// By more than figures are in doubt: 100 ppm, or 0.1 dB.
    bool IsClearlyAnother() const;
    std::string TellLevel() const;
    std::string TellFrequency() const;
    std::string TellDc() const;
    std::string TellClipping() const;
    std::string TellFlatTops() const;
    std::string TellWraps() const;
    std::string TellJumps() const;
    /// Any other one, where it has moved by more than that.
    std::string TellFigure(const MeasuredFigure& figure, double tolerance) const;

private:
    /// A tone that has another frequency.
    struct Shift {
        double hz, nowHz;

        double GetPpm() const { return (nowHz / hz - 1) * 1e6; }
    };

    std::optional<Shift> FindShift() const;
    bool IsOfLostFrames(const Shift& shift) const;
    double CountNewJumps() const;
    double CountDisturbed() const;

    const Json& before;
    const Json& now;
    Extent extent;
};
