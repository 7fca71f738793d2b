#pragma once

#include "hires/hires_source.h"

#include <vector>

/// Brings a source to one channel or two. One stands on both sides; two become their mean, which can't
/// exceed full scale, where the standard quality adds and limits them.
class HiresChannels : public HiresSource {
public:
    /// The source itself where it has as many.
    static HiresSourcePtr Open(HiresSourcePtr source, int channelCount);

    HiresChannels(HiresSourcePtr source, int channelCount);

    void Read(std::int32_t* out, int frames) override;
    std::int64_t GetLength() const override { return from->GetLength(); }

private:
    HiresSourcePtr from;
    std::vector<std::int32_t> block; ///< what comes in
};
