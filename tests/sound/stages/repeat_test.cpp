#include "sound/stages/repeat.h"
#include "support/array_source.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

/// Each frame's sample is its own index.
std::vector<int> Ramp(int frames) {
    std::vector<int> samples(static_cast<std::size_t>(frames));
    std::iota(samples.begin(), samples.end(), 0);
    return samples;
}

LSoundSource Loop(int start, int end, int frames = 50000) {
    return LSoundSource::Make<LSRCRepeat>(ArrayOf(Ramp(frames)), start, end);
}

TEST(Repeat, GoesBackToItsStartForEver) {
    // The last column is the length of what is heard on every pass.
    const std::tuple<const char*, int, int, int> cases[] = {{"a second", 0, 44100, 44100},
                                                            {"from the middle", 1000, 3000, 2000},
                                                            {"swapped", 3000, 1000, 2000},
                                                            {"no shorter than 256 frames", 10, 20, 256},
                                                            {"empty at the start", 0, 0, 256}};
    for (const auto& [name, first, second, length] : cases) {
        const LSoundSource loop = Loop(first, second);
        // A loop of less than 256 frames starts over with every call.
        const std::vector<int> out = length > 256 ? ReadInPieces(*loop, 100000) : ReadFrames(*loop, 100000);
        const auto [start, end] = std::minmax(first, second);
        std::vector<int> expected = Ramp(end);
        while (expected.size() < 100000)
            for (int i = 0; i < length; ++i)
                expected.push_back(start + i);
        expected.resize(100000);
        EXPECT_EQ(out, expected) << name;
    }
}

TEST(Repeat, SeeksWithinTheLoop) {
    constexpr int cases[][4] = {{0, 1000, 1010, 10},    {0, 1000, 999, 999},  {0, 1000, 1000, 0},
                                {500, 1000, 1600, 100}, // not offset by the loop start
                                {0, 0, 77, 0},          {300, 300, 400, 300}, {0, 1000, 0x7FFFFFFF, 647}};
    for (const auto& [start, end, target, position] : cases) {
        const LSoundSource loop = Loop(start, end);
        loop->Seek(target);
        EXPECT_EQ(loop->GetPositionSample(), position) << target;
    }
}

TEST(Repeat, ShowsALengthAndLeavesFailedSourcesAlone) {
    const LSoundSource twoSeconds = Loop(0, 88200);
    EXPECT_EQ(twoSeconds->GetEndSample(), 441000);
    ReadFrames(*twoSeconds, 88200);
    EXPECT_EQ(twoSeconds->GetPositionSample(), 0) << "what ends at the loop's end has gone back";
    const LSoundSource failed;
    EXPECT_EQ(&*LSPRepeat(LSoundTime(0), LSoundTime(1000)).OpenSource(failed), &*failed);
    LSRCRepeat forced(failed, 0, 10);
    EXPECT_EQ(ReadFrames(forced, 1), std::vector<int>{0x5EED});
    const LSoundSource input = ArrayOf(Ramp(9000), 8000);
    input->Seek(8500); // beyond the loop already
    const LSoundSource loop = LSPRepeat(LSoundTime(500), LSoundTime(1000)).OpenSource(input);
    EXPECT_EQ(loop->GetEndSample(), 8000 + 64000);
    EXPECT_EQ(ReadFrames(*loop, 2), (std::vector<int>{4000, 4001}));
}

} // namespace
