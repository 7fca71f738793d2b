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
/// none.
///
/// Tones are the lines no more than 30 dB below the strongest one, the 16 strongest of them, but for
/// harmonics of a lower one: a tone of three times another's frequency counts as the other's distortion.
/// There are none where all lines together have less than a hundredth of the power, as in noise and in
/// silence. What moves, as a sweep does, has no lines or many.
///
/// Noise is what lies between the lines, and taken to lie below them as well. Beside a fit to the samples,
/// levels of tones are within 0.001 dB, their frequencies within 1e-7, ratios of lines within 0.01 dB, and
/// those of noise within 0.03 dB after a second and 0.01 dB after ten.
///
/// None of this holds for tones that are not steady, but for the strongest lines, which are means then: tones
/// that come and go, sweep, or beat with others up to eight bins away. After 24 s, a change of less than 6 s
/// may be overlooked.
struct ToneFigures {
    /// Whether no tone varies by more than a tenth (0.9 dB); if not, there are none.
    bool isSteady = true;
    double variation = 0; ///< of the one that varies most, as `SpectrumLine` has it
    static constexpr double LowestHz = 20, HighestHz = 20000;

    std::vector<ToneLine> tones;     ///< by frequency, which may lie above 20 kHz
    std::vector<ToneLine> strongest; ///< ten lines at most, at any frequency; the strongest first

    double thd = 0;           ///< all harmonics that stand out as lines, beside all tones
    double thdPlusNoise = 0;  ///< all but the tones beside all, which is AES17's ratio
    double signalToNoise = 0; ///< all tones beside all that is neither tone nor harmonic
    double spurFreeRange = 0; ///< the strongest tone beside the strongest other line, harmonic or not
};

ToneFigures MeasureTones(const Spectrum& spectrum, std::size_t channel);
