#include "app/window/play_input.h"

#include "app/quality.h"
#include "jobs/hires_input.h"
#include "play/sound_player.h"

namespace {

PlayInput OpenStandard(const SonvireData& tone) {
    const SoundInput input = OpenToneInput(tone, SoundLength::Any);
    return {{input}, input.source.GetEnd(), 0, [source = input.source](LSoundPlayer& player) {
                return player.Start(source);
            }};
}

PlayInput OpenHigh(const SonvireData& tone) {
    const HiresInput input = OpenHiresToneInput(tone, {.settings = {.fit = true,
                                                                    .fadeInMs = HiresSettings::PlayedFadeMs,
                                                                    .fadeOutMs = HiresSettings::PlayedFadeMs},
                                                       .length = SoundLength::Any});
    if (input.failure)
        return {{input}, {}, 0, {}};
    const LPlayFormat format{.rate = input.source->rate};
    return {{input},
            format.GetTime(input.source->GetLength()),
            input.loweredDb,
            [open = input.open](LSoundPlayer& player) {
                player.Start([open](int rate) { return open(rate).source; });
                return true;
            }};
}

} // namespace

PlayInput OpenPlayInput(const SonvireData& tone, const Quality& quality) {
    return quality.IsHigh() ? OpenHigh(tone) : OpenStandard(tone);
}
