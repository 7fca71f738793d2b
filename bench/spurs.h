#pragma once

#include <complex>
#include <span>
#include <vector>

/// The lines of a sound, seen through a Kaiser window whose side lobes lie below -220 dB. Amplitudes are
/// those of sines, full scale being 1.
class LineSpectrum {
public:
    static constexpr int Frames = 1 << 18;
    struct Line {
        double hz, amplitude;
    };

    /// Of the first `Frames` samples.
    LineSpectrum(const std::vector<double>& samples, int rate);

    /// The strongest that is at none of these frequencies.
    Line FindStrongestBeside(std::span<const double> hz) const;
    /// Of all that is from 20 Hz to 20 kHz, but at none of these frequencies: the mean square.
    double GetPowerBeside(std::span<const double> hz) const;

private:
    std::vector<double> GetLinesBeside(std::span<const double> hz) const;

    std::vector<double> amplitudes; ///< by bins
    double hzPerBin;
    double binsPerNoise; ///< the window's equivalent noise bandwidth
};

/// The line at a frequency from one frame on, `LineSpectrum::Frames` of them; its argument is the phase at
/// frame 0.
std::complex<double> MeasureLine(const std::vector<double>& samples, double hz, int rate,
                                 std::size_t from = 0);
