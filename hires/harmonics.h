#pragma once

#include <cstdint>
#include <vector>

/// What a waveform is made of: harmonics of a sine, or of a cosine.
struct HiresSpectrum {
    /// The amplitude of the k-th harmonic, 1.., where the waveform's own peak is 1.
    double (*getAmplitude)(int harmonic);
    /// By how much of a cycle each is ahead of a sine, as an entry of the table; 0 but for cosines.
    int ahead;
};

/// One cycle of a waveform that has only its first harmonics, so that none is beyond half the rate.
///
/// Between its 32768 entries a curve of the third degree is taken: what that adds to the sound stays below
/// -130 dB beside the lowest harmonic even where there are thousands.
class HiresHarmonics {
public:
    static constexpr int Entries = 32768;
    /// What of a very low tone is beyond these is left out: it is beyond hearing, too.
    static constexpr int Most = 4096;
    /// What stands for 1 in a table, so that overshoots fit.
    static constexpr double Unity = 1 << 30;

    /// Without any harmonic: silence.
    explicit HiresHarmonics(const HiresSpectrum& of);

    /// Adds or takes away harmonics until it has those up to `harmonic`. Takes as long as there are entries
    /// for each. Exact: nothing is left of what is taken away.
    void SetHighest(int harmonic);
    int GetHighest() const { return highest; }
    /// A single harmonic at a phase of the waveform, whether the table has it or not.
    std::int32_t LookUpHarmonic(int harmonic, std::uint64_t phase) const;
    /// The value at a phase of which 2^64 are a cycle, `Unity` being 1.
    std::int32_t LookUp(std::uint64_t phase) const;
    /// The largest magnitude of all entries.
    std::int32_t GetPeak() const;

private:
    void Add(int harmonic, int sign);
    std::int64_t GetAmplitude(int harmonic) const;

    HiresSpectrum spectrum;
    int highest = 0;
    std::vector<std::int32_t> table; ///< the entry before the first, all entries, and two after the last
};
