#include "sound/stages/shared_filter.h"

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <tuple>

namespace {

constexpr std::size_t MostKept = 16;

struct Kept {
    std::tuple<int, int, bool> rates; ///< and whether it is wide
    std::shared_ptr<const LSharedFilter> filter;
};

} // namespace

std::shared_ptr<const LSharedFilter> LSharedFilter::Get(int inRate, int outRate, bool wide) {
    static std::mutex mutex;
    static std::vector<Kept> kept; // the one that was asked for last stands at the end
    const std::tuple rates(inRate, outRate, wide);
    const std::scoped_lock lock(mutex);
    const auto found =
        std::find_if(kept.begin(), kept.end(), [&](const Kept& each) { return each.rates == rates; });
    if (found != kept.end()) {
        std::rotate(found, found + 1, kept.end());
        return kept.back().filter;
    }
    if (kept.size() == MostKept)
        kept.erase(kept.begin());
    kept.push_back({rates, std::make_shared<LSharedFilter>(inRate, outRate, wide)});
    return kept.back().filter;
}

LSharedFilter::LSharedFilter(int inRate, int outRate, bool wide)
    : filter(inRate, outRate, Taps, wide),
      rows(static_cast<std::size_t>(filter.GetPhases())) {
    for (int p = 0; p < filter.GetPhases(); ++p)
        rowsFit = FillRow(rows[static_cast<std::size_t>(p)], filter.GetRow(p)) && rowsFit;
}

/// False where the taps can't be taken so.
bool LSharedFilter::FillRow(LPolyphaseRow& row, const int* taps) {
    static_assert(LPolyphaseRow::Length == Taps + 1);
    constexpr int half = Taps >> 1, coarse = LPolyphaseRow::Coarse;
    int magnitudes[2] = {0, 0}; // of each half
    bool fits = true;
    for (int t = 0; t < Taps; ++t) {
        int tap = taps[t];
        if (t == half || t == half + 1) {
            middle.push_back(static_cast<std::int16_t>((tap + coarse / 2) / coarse));
            tap -= middle.back() * coarse;
        }
        row.taps[t] = static_cast<std::int16_t>(tap);
        magnitudes[t > half ? 1 : 0] += std::abs(tap);
        fits = fits && row.taps[t] == tap;
    }
    return fits && std::max(magnitudes[0], magnitudes[1]) <= LPolyphaseRow::MaxHalf;
}
