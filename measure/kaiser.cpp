#include "measure/kaiser.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

double GetBell(double beta, double x) {
    return std::cyl_bessel_i(0, beta * std::sqrt(std::max(0.0, 1 - x * x)));
}

} // namespace

double GetKaiser(double beta, double x) {
    return GetBell(beta, x) / GetBell(beta, 0);
}

double GetKaiserResponse(double beta, double bins) {
    const double turn = std::numbers::pi * bins, square = beta * beta - turn * turn;
    const double root = std::sqrt(std::abs(square));
    if (root < 1e-6)
        return 1;
    return square > 0 ? std::sinh(root) / root : std::sin(root) / root;
}

std::vector<double> MakeKaiserWindow(double beta, std::size_t count) {
    std::vector<double> window(count);
    const double middle = GetBell(beta, 0);
    for (std::size_t i = 0; i <= count / 2; ++i) {
        window[i] = GetBell(beta, 1 - 2 * static_cast<double>(i) / static_cast<double>(count)) / middle;
        if (i > 0)
            window[count - i] = window[i];
    }
    return window;
}
