#pragma once

#include "measure/mean_spectrum.h"

#include <cstddef>
#include <vector>

/// A line of the spectrum.
struct ToneLine {
    double hz = 0;
    double amplitude = 0; ///< of a sine; full scale is 1
    int tone = -1;        ///< the number of the tone that this is or is a harmonic of; -1: none
    int harmonic = 0;     ///< 1 for the tone itself; 0: of none
};

/// The figures of a channel, from `LowestHz` to `HighestHz`. Ratios are those of amplitudes; 0 stands for
/// none. They are those of one tone, as AES17 and IEC 61606-3 have them, who take the stimulus out by a notch
/// and count all else: that of the strongest line, or of the lowest of those within 0.1 dB of it.
///
/// Tones are the lines no more than 30 dB below that one, the 16 strongest of them, but for harmonics of a
/// stronger one. There are none where all lines together have less than a hundredth of the power, as in noise
/// and in silence.
///
/// Noise is what lies between the lines, and taken to lie below them as well. Beside a fit to the samples,
/// levels of tones are within 0.001 dB, their frequencies within 1e-7, ratios of lines within 0.01 dB, and
/// those of noise within 0.03 dB after a second and 0.01 dB after ten.
///
/// None of this is told where tones are not steady, but for the strongest lines, which are means then: tones
/// that come and go, sweep, or beat with others up to eight bins away. Nothing is told where most of the
/// sound lies below the ninth bin or within eight of half the rate, but for DC.
struct ToneFigures {
    static constexpr double LowestHz = 20, HighestHz = 20000;

    bool isWithinReach = true; ///< of the spectrum
    /// Whether no tone varies by more than a tenth (0.9 dB).
    bool isSteady = true;
    double variation = 0; ///< of the one that varies most, as `SpectrumLine` has it

    std::vector<ToneLine> tones;     ///< by frequency, which may lie above 20 kHz
    std::size_t main = 0;            ///< of them, the one that the ratios are about
    std::vector<ToneLine> strongest; ///< ten lines at most, at any frequency; the strongest first

    double thd = 0;           ///< all harmonics that stand out as lines, beside the tone
    double thdPlusNoise = 0;  ///< all but the tone beside all, which is AES17's ratio
    double signalToNoise = 0; ///< the tone beside all that is neither it nor a harmonic
    double spurFreeRange = 0; ///< the tone beside the strongest other line, harmonic or not
    double residual = 0;      ///< all but all tones beside all: the THD+N of a sum of tones
};

ToneFigures MeasureTones(const Spectrum& spectrum, std::size_t channel);
