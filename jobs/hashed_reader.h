#pragma once

#include "jobs/frame_reader.h"
#include "measure/sample_hash.h"

#include <optional>
#include <string>
#include <vector>

/// Hands out what another reader does, and makes a hash of it, as `SampleHash` has it.
class HashedReader : public FrameReader {
public:
    /// What may have been done to frames without a trace in their figures. What has no positive counterpart
    /// is clipped where it is inverted.
    enum class Change { None, Swapped, Inverted, FirstInverted, SecondInverted };

    /// `SampleHash::Check` has been asked. `bits` are those that are hashed. With `triesChanges`, hashes of
    /// what is changed back are made as well, for `FindChange`.
    HashedReader(std::unique_ptr<FrameReader> wrapped, int bits, bool triesChanges);

    std::size_t Read(std::span<double> out) override;
    std::optional<double> GetLimiterDb() const override { return reader->GetLimiterDb(); }

    // One of both, once, behind the end:

    std::string Finish() { return hashes.front().hash.Finish(); }
    /// What was done to the frames of this hash; nothing where they are others.
    std::optional<Change> FindChange(const std::string& sha256);

private:
    struct ChangedHash {
        Change change;
        SampleHash hash;
    };

    void Apply(Change change, std::span<double> samples) const;

    std::unique_ptr<FrameReader> reader;
    double highest;                  ///< of the samples
    std::vector<ChangedHash> hashes; ///< that without a change first
    std::vector<double> changed;
};
