#include "hires/sine_table.h"

#include "hires/exact_math.h"

#include <cmath>
#include <limits>

namespace {

HiresSineTable MakeSineTable() {
    HiresSineTable table;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double value = ExactSine(static_cast<std::int64_t>(i % 32768), 32768);
        table[i] =
            static_cast<std::int32_t>(std::floor(value * std::numeric_limits<std::int32_t>::max() + 0.5));
    }
    return table;
}

} // namespace

const HiresSineTable& GetHiresSineTable() {
    static const HiresSineTable table = MakeSineTable();
    return table;
}
