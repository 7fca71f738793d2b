#pragma once

#include "gui/shown_sound.h"

#include <optional>

enum class LPlot { Wave, Spectrum };

/// How a sound is looked at.
struct LSoundLook {
    bool hasWave = true;
    bool hasSpectrum = true;
    bool isWhole = false;  ///< all of the wave, instead of a few periods
    bool isLinear = false; ///< the axis of frequency

    bool operator==(const LSoundLook&) const = default;
};

/// What a sound view shows, and the user's way about it: what is zoomed in on, and what is read off.
class LSoundView {
public:
    /// Of what is read off: in the plot, and as words: "1.000 kHz, -20.3 dBFS, B5 +21 ct".
    struct Reading {
        LPlot plot;
        double place; ///< along the axis, in [0, 1]
        std::string text;
    };

    /// Zoom and reading stay where they are.
    void Show(LShownSoundPtr shown);
    void SetLook(const LSoundLook& changed);
    const LSoundLook& GetLook() const { return look; }
    const LShownSound& GetSound() const { return *sound; }
    bool HasPlot(LPlot plot) const { return plot == LPlot::Wave ? look.hasWave : look.hasSpectrum; }
    const LAxis& GetAxis(LPlot plot) const { return axes[static_cast<std::size_t>(plot)]; }

    /// So many times closer, with what is at `place` of the axis staying there.
    void Zoom(LPlot plot, double place, double times);
    /// To the right by so many of the plot's widths.
    void Move(LPlot plot, double widths);
    void ResetZoom();

    /// Reads off what is at a place; of the spectrum, what is highest within `reach` to either side.
    void Point(LPlot plot, double place, double reach);
    /// Takes the reading further by the keyboard, at first from the middle.
    void StepReading(double places);
    /// To the other plot.
    void TurnReading();
    void EndReading() { pointed.reset(); }
    std::optional<Reading> GetReading() const;
    /// The plot that the keyboard's zoom is about, and where.
    LPlot GetPointedPlot() const;
    double GetPointedPlace() const { return pointed ? pointed->place : 0.5; }

    /// For screen readers: the reading, the figures and the lines.
    std::string Describe() const;
    /// The shown parts of the plots, one below the other.
    std::string WriteCsv() const;

private:
    struct Pointed {
        LPlot plot;
        double place, reach;
    };

    LAxis GetWhole(LPlot plot) const;
    LAxis GetUsual(LPlot plot) const;
    /// After a change of what there is to be seen.
    void FitAxes();
    std::string ReadWave(double place) const;
    Reading ReadSpectrum(const Pointed& at) const;

    LShownSoundPtr sound = std::make_shared<LShownSound>();
    LSoundLook look;
    LAxis axes[2] = {};
    bool isZoomed[2] = {}; ///< by the user
    std::optional<Pointed> pointed;
};
