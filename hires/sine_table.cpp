#include "hires/sine_table.h"

#include "hires/exact_math.h"

namespace {

HiresSineTable MakeSineTable() {
    HiresSineTable table;
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<std::int32_t>(RoundToBits(ExactSine(std::uint64_t{i} << 49), HiresUnityBits));
    return table;
}

} // namespace

const HiresSineTable& GetHiresSineTable() {
    static const HiresSineTable table = MakeSineTable();
    return table;
}
