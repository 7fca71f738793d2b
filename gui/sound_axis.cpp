#include "gui/sound_axis.h"

#include "gui/format_fixed.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace {

constexpr double LeastDecades = 1; ///< of what is marked by decades

double Scale(const LAxis& axis, double value) {
    return axis.isLogarithmic ? std::log(value) : value;
}

double Unscale(const LAxis& axis, double scaled) {
    return axis.isLogarithmic ? std::exp(scaled) : scaled;
}

/// Of this width on the axis's own scale, as near to `from` as `whole` allows.
LAxis PlaceWithin(const LAxis& axis, double from, double width, const LAxis& whole) {
    const double least = Scale(axis, whole.from), most = Scale(axis, whole.to);
    if (width >= most - least)
        return {whole.from, whole.to, axis.isLogarithmic};
    const double start = std::clamp(from, least, most - width);
    return {Unscale(axis, start), Unscale(axis, start + width), axis.isLogarithmic};
}

/// 1, 2 or 5 times a power of ten, so that `width` has so many at most.
double FindStep(double width, int most) {
    const double rough = width / std::max(1, most);
    const double power = std::pow(10, std::floor(std::log10(rough)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power >= rough * (1 - 1e-9))
            return step * power;
    return 10 * power;
}

int CountPlaces(double step) {
    return std::max(0, static_cast<int>(-std::floor(std::log10(step) + 1e-9)));
}

/// At round distances, the values told in a unit that is `size` of the axis's own.
LTicks MarkEvenly(const LAxis& axis, int most, double size, const char* unit) {
    LTicks marks{{}, unit};
    const double step = FindStep((axis.to - axis.from) / size, most);
    const auto first = static_cast<std::int64_t>(std::ceil(axis.from / size / step - 1e-6));
    const auto last = static_cast<std::int64_t>(std::floor(axis.to / size / step + 1e-6));
    for (std::int64_t n = first; n <= last; ++n) {
        const double value = static_cast<double>(n) * step;
        marks.ticks.push_back({axis.GetPlace(value * size), FormatFixed(value, CountPlaces(step))});
    }
    return marks;
}

std::string ShortenHz(double hz) {
    return hz < 1000 ? FormatFixed(hz, CountPlaces(hz)) : FormatFixed(hz / 1000, 0) + "k";
}

/// All that begin with 1, 2 and 5, or only as many decades as there is room for.
LTicks MarkDecades(const LAxis& axis, int most) {
    const double decades = std::log10(axis.to / axis.from);
    const std::array<double, 3> all = {1, 2, 5};
    const std::size_t taken = decades * 3 <= most ? 3 : 1;
    const int every = std::max(1, static_cast<int>(std::ceil(decades / most)));
    const int last = static_cast<int>(std::floor(std::log10(axis.to) + 1e-9));
    LTicks marks{{}, "Hz"};
    for (int power = static_cast<int>(std::floor(std::log10(axis.from))); power <= last; power += every)
        for (std::size_t i = 0; i < taken; ++i)
            if (const double hz = all[i] * std::pow(10, power);
                hz >= axis.from * (1 - 1e-9) && hz <= axis.to * (1 + 1e-9))
                marks.ticks.push_back({axis.GetPlace(hz), ShortenHz(hz)});
    return marks;
}

} // namespace

double LAxis::GetPlace(double value) const {
    const double start = Scale(*this, from);
    return (Scale(*this, value) - start) / (Scale(*this, to) - start);
}

double LAxis::GetValue(double place) const {
    return Unscale(*this, std::lerp(Scale(*this, from), Scale(*this, to), place));
}

LAxis LAxis::Zoom(double place, double factor, double least, const LAxis& whole) const {
    const double start = Scale(*this, from), width = Scale(*this, to) - start;
    const double fixed = start + place * width;
    const LAxis zoomed = PlaceWithin(*this, fixed - place * width * factor, width * factor, whole);
    return factor < 1 && zoomed.to - zoomed.from < least ? *this : zoomed;
}

LAxis LAxis::Move(double widths, const LAxis& whole) const {
    const double start = Scale(*this, from), width = Scale(*this, to) - start;
    return PlaceWithin(*this, start + widths * width, width, whole);
}

LTicks MarkHz(const LAxis& axis, int most) {
    if (axis.isLogarithmic && axis.to / axis.from >= std::pow(10, LeastDecades))
        return MarkDecades(axis, most);
    return axis.to >= 2000 ? MarkEvenly(axis, most, 1000, "kHz") : MarkEvenly(axis, most, 1, "Hz");
}

LTicks MarkSeconds(const LAxis& axis, int most) {
    if (axis.to >= 1)
        return MarkEvenly(axis, most, 1, "s");
    return axis.to >= 0.001 ? MarkEvenly(axis, most, 1e-3, "ms") : MarkEvenly(axis, most, 1e-6, "µs");
}

LTicks MarkNumbers(const LAxis& axis, int most) {
    return MarkEvenly(axis, most, 1, "");
}

std::string FormatHz(double hz) {
    return hz < 999.95 ? FormatFixed(hz, 1) + " Hz" : FormatFixed(hz / 1000, 3) + " kHz";
}

std::string FormatSeconds(double seconds) {
    return seconds < 1 ? FormatFixed(seconds * 1000, 2) + " ms" : FormatFixed(seconds, 3) + " s";
}
