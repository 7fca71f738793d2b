#include "gui/sound_view.h"

#include "gui/format_fixed.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double ShownPeriods = 4;
constexpr double UnknownSeconds = 0.02, LeastSeconds = 0.0005; ///< of a wave
constexpr double LeastFrames = 16, LeastBins = 16;             ///< in a plot
constexpr double KeyReach = 0.005;

std::size_t Index(LPlot plot) {
    return static_cast<std::size_t>(plot);
}

/// So that two digits of the largest are told at least.
int CountPlaces(double top) {
    return std::max(2, 1 + static_cast<int>(std::ceil(-std::log10(top))));
}

} // namespace

void LSoundView::Show(LShownSoundPtr shown) {
    sound = std::move(shown);
    FitAxes();
}

void LSoundView::SetLook(const LSoundLook& changed) {
    isZoomed[Index(LPlot::Wave)] &= changed.isWhole == look.isWhole;
    isZoomed[Index(LPlot::Spectrum)] &= changed.isLinear == look.isLinear;
    look = changed;
    if (pointed && !HasPlot(pointed->plot))
        EndReading();
    FitAxes();
}

LAxis LSoundView::GetWhole(LPlot plot) const {
    return plot == LPlot::Wave ? sound->GetTime() : sound->GetHz(look.isLinear);
}

LAxis LSoundView::GetUsual(LPlot plot) const {
    LAxis usual = GetWhole(plot);
    if (plot == LPlot::Wave && !look.isWhole) {
        const double few = sound->lowestHz > 0 ? ShownPeriods / sound->lowestHz : UnknownSeconds;
        usual.to = std::min(usual.to, std::max(few, LeastSeconds));
    }
    return usual;
}

void LSoundView::FitAxes() {
    for (const LPlot plot : {LPlot::Wave, LPlot::Spectrum}) {
        LAxis& axis = axes[Index(plot)];
        if (isZoomed[Index(plot)] && axis.from < GetWhole(plot).to)
            axis = axis.Move(0, GetWhole(plot));
        else
            axis = GetUsual(plot);
    }
}

void LSoundView::Zoom(LPlot plot, double place, double times) {
    const double least = plot == LPlot::Wave ? LeastFrames / sound->rate : LeastBins * sound->hzPerBin;
    LAxis& axis = axes[Index(plot)];
    axis = axis.Zoom(place, 1 / times, least, GetWhole(plot));
    isZoomed[Index(plot)] = axis != GetUsual(plot);
}

void LSoundView::Move(LPlot plot, double widths) {
    LAxis& axis = axes[Index(plot)];
    axis = axis.Move(widths, GetWhole(plot));
    isZoomed[Index(plot)] = axis != GetUsual(plot);
}

void LSoundView::ResetZoom() {
    isZoomed[0] = isZoomed[1] = false;
    FitAxes();
}

void LSoundView::Point(LPlot plot, double place, double reach) {
    pointed = {plot, std::clamp(place, 0.0, 1.0), reach};
}

LPlot LSoundView::GetPointedPlot() const {
    return pointed ? pointed->plot : look.hasSpectrum ? LPlot::Spectrum : LPlot::Wave;
}

void LSoundView::StepReading(double places) {
    Point(GetPointedPlot(), GetPointedPlace() + places, KeyReach);
}

void LSoundView::TurnReading() {
    const LPlot other = GetPointedPlot() == LPlot::Wave ? LPlot::Spectrum : LPlot::Wave;
    if (HasPlot(other))
        Point(other, 0.5, KeyReach);
}

std::optional<LSoundView::Reading> LSoundView::GetReading() const {
    if (!pointed || sound->channels.empty())
        return std::nullopt;
    if (pointed->plot == LPlot::Wave)
        return Reading{LPlot::Wave, pointed->place, ReadWave(pointed->place)};
    if (sound->channels[0].spectrum.empty())
        return std::nullopt;
    return ReadSpectrum(*pointed);
}

std::string LSoundView::ReadWave(double place) const {
    const LAxis& axis = GetAxis(LPlot::Wave);
    const double seconds = std::round(axis.GetValue(place) * sound->rate) / sound->rate;
    const int places = CountPlaces(sound->GetWaveTop());
    std::string text = FormatSeconds(seconds);
    for (std::size_t c = 0; c < sound->channels.size(); ++c) {
        const LShownSound::Range range = sound->GetWave(c, seconds, seconds);
        const std::string least = FormatFixed(double{range.least}, places),
                          most = FormatFixed(double{range.most}, places);
        text.append(", ").append(sound->NameChannel(c)).append(least);
        if (least != most)
            text.append(" to ").append(most);
    }
    return text;
}

LSoundView::Reading LSoundView::ReadSpectrum(const Pointed& at) const {
    const LAxis& axis = GetAxis(LPlot::Spectrum);
    std::string levels;
    double hz = 0;
    float highest = -INFINITY;
    for (std::size_t c = 0; c < sound->channels.size(); ++c) {
        const std::size_t bin =
            sound->FindBin(c, axis.GetValue(at.place - at.reach), axis.GetValue(at.place + at.reach));
        const float dbfs = sound->channels[c].spectrum[bin].dbfs;
        levels += ", " + sound->NameChannel(c) + LShownSound::FormatLevel(dbfs, 1);
        if (dbfs > highest)
            hz = sound->GetBinHz(c, bin);
        highest = std::max(highest, dbfs);
    }
    const std::string name = sound->nameHz(hz);
    return {LPlot::Spectrum, std::clamp(axis.GetPlace(hz), 0.0, 1.0),
            FormatHz(hz) + levels + " dBFS" + (name.empty() ? "" : ", " + name)};
}

std::string LSoundView::Describe() const {
    const std::optional<Reading> reading = GetReading();
    std::string text = reading ? reading->text + ". " : "";
    for (const LMarkedText& part : sound->figures)
        text += part.text;
    return text + (sound->lines.empty() ? "" : ". " + sound->lines);
}

std::string LSoundView::WriteCsv() const {
    const std::string wave = look.hasWave ? sound->WriteWave(GetAxis(LPlot::Wave)) : "";
    const std::string spectrum = look.hasSpectrum ? sound->WriteSpectrum(GetAxis(LPlot::Spectrum)) : "";
    return wave + (wave.empty() || spectrum.empty() ? "" : "\n") + spectrum;
}
