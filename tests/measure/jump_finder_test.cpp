#include "measure/jump_finder.h"
#include "support/measured_wave.h"

#include <gtest/gtest.h>

namespace {

TEST(JumpFinder, FindsWhereAToneDoesNotGoOn) {
    const Wave tone = SineOf(997, 0.5, 0.1), low = SineOf(100, 0.5),
               two = [&](double frame) { return tone(frame) / 2 + SineOf(440, 0.3)(frame) + 0.01; };
    /// From a frame on, frames are missing or doubled.
    const auto shifted = [](const Wave& wave, int at, double frames) {
        return [=](double frame) { return wave(frame < at ? frame : frame + frames); };
    };
    const struct {
        const char* what;
        Wave wave;
        std::int64_t count, first, late;
        int frames = 200000;
        std::int64_t wraps = 0;
    } cases[] = {
        {"a steady tone", tone, 0, -1, 0},
        {"a frame dropped", shifted(tone, 150000, 1), 1, 150000, 0},
        {"within the first second", shifted(tone, 30000, 1), 1, 30000, 0},
        {"soon, of a short sound", shifted(tone, 1000, 1), 1, 1000, 0, 20000},
        {"one doubled", shifted(tone, 150001, -1), 1, 150001, 0},
        {"of a low tone", shifted(low, 150000, 1), 1, 150000, 2},
        {"at its peak, where it is level", shifted(low, 150036, 1), 1, 150036, 2},
        {"of two tones and DC", shifted(two, 150000, 1), 1, 150000, 0},
        {"two jumps", shifted(shifted(tone, 150000, 11), 170000, 20), 2, 150000, 0},
        {"a click", [&](double frame) { return frame == 99999 ? 0.51 : tone(frame); }, 1, 99999, 0},
        {"a wrapped sample of a high tone",
         [](double frame) { return SineOf(7350, 0.999)(frame) - (frame == 99997 ? 2 : 0); }, 1, 99997, 0,
         200000, 1},
        {"what a converter does at the start",
         [&](double frame) { return tone(frame) + std::max(0.0, 0.001 * (60 - frame)); }, 0, -1, 0},
        {"a sudden end", [&](double frame) { return frame < 180000 ? tone(frame) : 0; }, 1, 180000, 0},
        {"soft ends",
         [&](double frame) {
             return tone(frame) * std::min({1.0, frame / 400, (200000 - frame) / 400});
         },
         0, -1, 0},
    };
    for (const auto& [what, wave, count, first, late, frames, wraps] : cases) {
        const std::vector<double> samples =
            TakeSamples([&wave = wave](double frame) { return wave(frame) + DitherOf(frame); }, frames);
        JumpFinder finder(44100, 16);
        for (const auto& part : {ChannelBlock(samples).first(1000), ChannelBlock(samples).subspan(1000)})
            finder.Add(part);
        const Jumps jumps = finder.Finish();
        EXPECT_TRUE(jumps.hasLooked) << what;
        EXPECT_EQ(std::pair(jumps.count, jumps.wraps), std::pair(count, wraps)) << what;
        EXPECT_GE(jumps.first, first) << what;
        EXPECT_LE(jumps.first, first + late) << what;
    }
    const Wave sweep = [](double frame) { return std::sin(2000 * std::exp(frame / 200000) - 2000); };
    const Wave square = [&](double frame) { return tone(frame) < 0 ? -0.2 : 0.2; };
    for (const auto& [what, wave] :
         {std::pair("noise", Wave(DitherOf)), {"a sweep", sweep}, {"a square", square}}) {
        JumpFinder finder(44100, 16);
        finder.Add(TakeSamples(wave, 800000));
        EXPECT_FALSE(finder.Finish().hasLooked) << what;
    }
}

} // namespace
