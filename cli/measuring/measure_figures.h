#pragma once

#include "measure/sound_meter.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// A sound that was measured.
struct MeasuredSound {
    std::string name;
    int rate = 0;                      ///< frames per second
    int bits = 0;                      ///< of the samples; 0 for floating point
    std::optional<double> limiterDb{}; ///< the most that the limiter has taken off, where that is known
    SoundFigures figures;

    std::int64_t GetFrames() const;
    /// Whether any sample is one; of nothing but silence in the place of others there are no figures.
    bool HasUsable() const { return figures.unusable < figures.whole.samples; }
    /// Of the channel that has the most.
    std::size_t CountTones() const;
    std::int64_t GetMilliseconds(std::int64_t frames) const;
};

/// A channel, or all of them together.
struct MeasuredColumn {
    std::string name;  ///< in limits and in JSON, such as "left"
    std::string title; ///< in the report
    SoundFigures::Channel figures;
    bool isWhole = false; ///< all together, which have levels and faults only
};

/// Each channel.
std::vector<MeasuredColumn> ListChannels(const MeasuredSound& sound);
/// All channels together.
MeasuredColumn MakeWhole(const MeasuredSound& sound);

/// A figure as it is called wherever it is told. Those of one name are one thing in several units.
struct MeasuredFigure {
    enum class Group { Losses, Levels, Faults, Tones, Tone, Distortion, Residual, Stereo };
    using Value = std::optional<double>; ///< none where the sound has no such figure; levels may be infinite

    Group group;
    int decimals;      ///< in the report
    const char* name;  ///< in a limit
    const char* label; ///< in the report
    const char* unit;  ///< empty for a count
    const char* field; ///< in JSON

    // One of both is there.
    Value (*ofChannel)(const SoundFigures::Channel& channel);
    Value (*ofSound)(const MeasuredSound& sound) = nullptr;

    bool limitsMagnitude = false; ///< a limit is not for the sign

    /// Whether all channels together have such figures.
    static bool HasWhole(Group group) { return group == Group::Levels || group == Group::Faults; }
    /// As the report has it: "none" for a count of 0 and for distortion that is not found, "-" where there is
    /// no such figure.
    std::string Format(Value value) const;
};

/// The tone of a channel that distortion and noise are told of; null where there is none.
const ToneLine* GetMainTone(const ToneFigures& figures);
/// What a channel is that no tone is told of; null where there is one.
const char* ExplainNoTones(const ToneFigures& figures);

/// All of them, in the order of the report.
std::span<const MeasuredFigure> GetMeasuredFigures();

/// With so many decimals, and no sign before a 0.
std::string FormatNumber(double value, int decimals);
