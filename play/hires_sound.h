#pragma once

#include "hires/hires_source.h"
#include "play/played_sound.h"

#include <vector>

/// Opens a source of the high-resolution engine, from its beginning and for this rate in frames per second;
/// null where it can't be had. Thread: player. Blocks: no. Allocates: yes.
using LHiresOpener = std::function<HiresSourcePtr(int rate)>;

/// A source of the high-resolution engine in float, made for the output's own rate.
class LHiresSound : public LPlayedSound {
public:
    explicit LHiresSound(LHiresOpener opener) : open(std::move(opener)) {}

    std::optional<LPlayFormat> Open(const std::function<int()>& findRate) override;
    int GetAhead(int most) const override;
    void Read(LSoundPlayerBuffer& buffer, int frames) override;
    LSoundTime GetEnd() const override { return format.GetTime(source->GetLength()); }

private:
    const LHiresOpener open;
    HiresSourcePtr source;
    LPlayFormat format;
    std::int64_t position = 0;
    std::vector<std::int32_t> work; ///< one block
};
