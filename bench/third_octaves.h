#pragma once

#include <vector>

/// The power of a sound in third octaves from 20 Hz to 20 kHz, averaged over all that is added.
class ThirdOctaves {
public:
    static constexpr int Frames = 1 << 18; ///< of a spectrum; they overlap by half

    explicit ThirdOctaves(int framesPerSecond);

    void Add(const std::vector<double>& samples);

    struct Band {
        double hz;        ///< its middle
        double deviation; ///< from the mean of all bands, in dB
    };
    /// `slope`: how the power density goes with the frequency; 0 for white noise, -1 for pink.
    std::vector<Band> GetDeviations(int slope) const;

private:
    void AddSpectrum();

    int rate;
    std::vector<double> waiting;
    std::vector<double> densities; ///< by bins, in any unit
};
