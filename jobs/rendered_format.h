#pragma once

#include "jobs/sound_input.h"
#include "sound/stages/peak_limit.h"

#include <cstdint>
#include <memory>
#include <optional>

/// What is asked of a sound in the standard quality; what is left open is the input's own.
struct RenderedFormatRequest {
    std::optional<int> rate{};
    std::optional<std::uint8_t> channels{};
    int bits = 16; ///< 8 or 16
};

/// What a sound of the standard quality is stored as.
struct RenderedFormat {
    int rate; ///< frames per second
    std::uint8_t channels;
    int bits; ///< 8 or 16

    RenderedFormat(const RenderedFormatRequest& request, const LSoundSource& source);

    /// The largest magnitude that doesn't wrap.
    int GetPeakLimit() const;
    /// Whether the input can become a sound of this format.
    LFailure Check(const SoundInput& input) const;
    /// The samples as they are stored. `told` hears of what is limited on the way.
    LSoundSource Open(const LSoundSource& source, const std::shared_ptr<LLimiterNews>& told) const;
};
