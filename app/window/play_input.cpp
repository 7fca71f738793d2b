#include "app/window/play_input.h"

#include "app/quality.h"
#include "jobs/hires_input.h"
#include "play/sound_player.h"

namespace {

constexpr double FadeMs = 10;

PlayInput OpenStandard(const SonvireData& tone) {
    const SoundInput input = OpenToneInput(tone, SoundLength::Any);
    return {{input},
            input.source.GetEnd(),
            std::make_shared<std::atomic<double>>(0),
            [source = input.source](LSoundPlayer& player) { return player.Start(source); }};
}

/// What the user waits for is done at the lowest rate, which takes the least time.
PlayInput OpenHigh(const SonvireData& tone) {
    constexpr LPlayFormat least{.rate = HiresSettings::LowestRate};
    const HiresInput input = OpenHiresToneInput(
        tone, {.settings = {.rate = least.rate, .fit = true, .fadeInMs = FadeMs, .fadeOutMs = FadeMs},
               .length = SoundLength::Any});
    const auto loweredDb = std::make_shared<std::atomic<double>>(0);
    const auto length = input.failure ? LSoundTime() : least.GetTime(input.source->GetLength());
    return {{input}, length, loweredDb, [open = input.open, loweredDb](LSoundPlayer& player) {
                player.Start([open, loweredDb](int rate) {
                    HiresTone opened = open(rate);
                    *loweredDb = opened.loweredDb;
                    return std::move(opened.source);
                });
                return true;
            }};
}

} // namespace

PlayInput OpenPlayInput(const SonvireData& tone, const Quality& quality) {
    return quality.IsHigh() ? OpenHigh(tone) : OpenStandard(tone);
}
