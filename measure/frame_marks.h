#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// Some frames of a sound, by which this place is found again where others were dropped or inserted before
/// it.
struct FrameMark {
    std::int64_t frame;
    std::uint64_t hash;
};

/// The frames of a sound that are still needed while it goes by.
class PassingFrames {
public:
    explicit PassingFrames(int channelCount) : channels(static_cast<std::size_t>(channelCount)) {}

    void Add(std::span<const double> samples);
    void DropBefore(std::int64_t frame);
    std::int64_t GetEnd() const { return first + static_cast<std::int64_t>(kept.size() / channels); }
    /// Empty where not all of them are there.
    std::span<const double> Get(std::int64_t frame, std::int64_t count) const;

private:
    std::size_t channels;
    std::int64_t first = 0; ///< of those that are kept
    std::vector<double> kept;
};

/// Marks a sound at even distances, or right behind where it stands still there. Thread: one at a time.
class FrameMarker {
public:
    FrameMarker(int channels, std::int64_t frames);

    /// Whole frames, interleaved.
    void Add(std::span<const double> samples);
    const std::vector<FrameMark>& GetMarks() const { return marks; }

private:
    PassingFrames passing;
    std::int64_t spacing, next = 0;
    std::vector<FrameMark> marks;
};

/// Finds marks again. Thread: one at a time.
class FrameMarkFinder {
public:
    FrameMarkFinder(int channels, std::vector<FrameMark> wanted);

    /// Whole frames, interleaved.
    void Add(std::span<const double> samples);
    /// Once, behind all of them: for each mark, how many frames later it is; nothing where it is not to be
    /// found within 4096 frames.
    std::vector<std::optional<std::int64_t>> Finish();

private:
    void LookForNext();

    PassingFrames passing;
    std::vector<FrameMark> marks; ///< by their frames
    std::vector<std::optional<std::int64_t>> shifts;
};
