#include "sound/stages/shared_filter.h"

#include "sound/stages/kernels.h"

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

LSharedFilter::LSharedFilter(int inRate, int outRate, bool wide) : filter(inRate, outRate, Taps, wide) {
    constexpr int half = Taps >> 1;
    static_assert(LPolyphaseRun::RowLength == Taps + 1);
    for (int p = 0; p < filter.GetPhases(); ++p) {
        const int* row = filter.GetRow(p);
        int magnitudes[2] = {0, 0}; // of each half
        for (int t = 0; t < Taps; ++t) {
            const bool apart = t == half || t == half + 1;
            const auto low = static_cast<std::int16_t>(row[t]);
            rows.push_back(apart ? std::int16_t{0} : low);
            if (apart)
                middle.push_back(row[t]);
            else
                magnitudes[t > half ? 1 : 0] += std::abs(row[t]);
            rowsFit = rowsFit && (apart || low == row[t]);
        }
        rows.push_back(0);
        rowsFit = rowsFit && std::max(magnitudes[0], magnitudes[1]) <= LPolyphaseRun::MaxHalfRow;
    }
}
