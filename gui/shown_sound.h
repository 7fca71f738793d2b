#pragma once

#include "gui/sound_axis.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A part of a text, which may be a warning.
struct LMarkedText {
    std::string text;
    bool isWarning = false;

    bool operator==(const LMarkedText&) const = default;
};

/// A sound as it is looked at: its wave and its spectrum, and what is to be said of them. Full scale is 1.
struct LShownSound {
    struct Range {
        float least, most;

        bool operator==(const Range&) const = default;
    };
    /// Of the spectrum. A bin that is higher than its neighbours stands for the line that makes it so: it has
    /// that one's level, and lies `shift` bins beside its own frequency.
    struct Bin {
        float dbfs;
        float shift = 0;
    };
    struct Channel {
        std::vector<float> samples;  ///< from the beginning; of a long sound not all
        std::vector<Range> envelope; ///< of all, in ranges of `framesPerRange`; empty where samples are all
        std::vector<Bin> spectrum;   ///< from 0 Hz to half the rate, in steps of `hzPerBin`
    };

    int rate = 44100;
    double seconds = 0;        ///< that are shown, all channels being that long
    double framesPerRange = 1; ///< above
    double hzPerBin = 1;
    double peak = 0;                  ///< the largest magnitude
    double lowestHz = 0;              ///< of what repeats itself in the wave; 0: unknown
    std::vector<Channel> channels;    ///< one or two; none at first
    std::vector<LMarkedText> figures; ///< one line: levels, and what to beware of
    std::string lines;                ///< another one: what stands out of the spectrum
    std::function<std::string(double hz)> nameHz = [](double /*hz*/) { return std::string(); };

    /// What the wave's axis shows at most.
    LAxis GetTime() const { return {0, seconds > 0 ? seconds : 1, false}; }
    /// The same of the spectrum's: from 10 Hz where it is logarithmic.
    LAxis GetHz(bool isLinear) const { return {isLinear ? 0.0 : 10.0, rate / 2.0, !isLinear}; }
    /// The full scale of a plot of the wave, in steps of 1, 2 and 5.
    double GetWaveTop() const;
    static constexpr double Floor = -140;  ///< the lowest level worth showing, in dBFS
    static constexpr float NoLevel = -300; ///< of a bin without anything

    /// What the wave reaches between two times; the nearest sample where there is none between them.
    Range GetWave(std::size_t channel, double from, double to) const;
    /// True where `GetWave` of a part this long knows single samples.
    bool HasSamples(double end) const;
    /// The number of the highest bin between two frequencies; the nearest one where there is none.
    std::size_t FindBin(std::size_t channel, double fromHz, double toHz) const;
    /// Its frequency.
    double GetBinHz(std::size_t channel, std::size_t bin) const;
    /// The highest level between two frequencies; where no bin lies, that of a line from bin to bin.
    double GetHighest(std::size_t channel, double fromHz, double toHz) const;

    /// "-20.3", "-inf"
    static std::string FormatLevel(float dbfs, int places);
    /// "left " and "right " of two channels, "" of one.
    std::string NameChannel(std::size_t channel) const;
    /// With a row of names, one row for each sample, or range where samples are not known; numbers with
    /// points.
    std::string WriteWave(const LAxis& axis) const;
    /// The same for bins.
    std::string WriteSpectrum(const LAxis& axis) const;
};

using LShownSoundPtr = std::shared_ptr<const LShownSound>;
