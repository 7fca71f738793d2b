#pragma once

#include "hires/hires_source.h"

#include <functional>

/// Plays what an opener gives over and over, opened anew each time. Reading it blocks and allocates as the
/// opener does. Silence follows where the opener gives null or nothing that lasts.
class HiresLoop : public HiresSource {
public:
    /// `opened` is the first turn, from its beginning.
    HiresLoop(HiresSourcePtr opened, std::function<HiresSourcePtr()> opener)
        : HiresSource(opened->rate, opened->channels),
          current(std::move(opened)),
          open(std::move(opener)),
          left(current->GetLength()) {}

    void Read(std::int32_t* out, int frames) override;
    std::int64_t GetLength() const override { return Endless; }

private:
    void OpenNext();

    HiresSourcePtr current; ///< null once nothing is to be had
    const std::function<HiresSourcePtr()> open;
    std::int64_t left; ///< of this turn
};
