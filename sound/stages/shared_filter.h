#pragma once

#include "sound/kernels/kernels.h"
#include "sound/stages/resample_filter.h"

#include <cstdint>
#include <memory>
#include <vector>

/// The filter of a rate conversion as the convolution takes it, which takes longer to design than to be used
/// on a short sound: shared by all conversions of the same rates.
struct LSharedFilter {
    static constexpr int Taps = 63;

    /// The one for these rates; the last 16 of them are kept.
    /// Thread: any. Blocks: while another thread designs one. Allocates: yes.
    static std::shared_ptr<const LSharedFilter> Get(int inRate, int outRate, bool wide);

    LSharedFilter(int inRate, int outRate, bool wide);

    LConvertRateBase filter;
    std::vector<LPolyphaseRow> rows; ///< the coefficients as `LPolyphaseRun` takes them
    std::vector<std::int16_t> middle;
    bool rowsFit = true; ///< whether they can be taken so; no rates are known whose can't

private:
    bool FillRow(LPolyphaseRow& row, const int* taps);
};
