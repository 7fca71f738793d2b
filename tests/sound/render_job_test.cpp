#include "sound/render_job.h"
#include "support/array_source.h"
#include "support/reference.h"

#include <gmock/gmock.h>

#include <string>

namespace {

class ArraySink : public LSoundSinkBase {
public:
    /// It takes so many writes, then fails by a system error.
    ArraySink(int rate, std::uint8_t channelCount, int writesToFail, int error)
        : LSoundSinkBase(rate, channelCount),
          fullAfter(writesToFail),
          fullBy(error) {}
    void Write(const int* buffer, int frames) override {
        writes.push_back(frames);
        samples.insert(samples.end(), buffer, buffer + frames * channels);
        if (std::ssize(writes) == fullAfter) {
            status |= SinkFellShort;
            failure = LFailure::OfSystem(fullBy);
        }
    }
    std::vector<int> samples, writes;
    int fullAfter, fullBy;
};

struct Recorder {
    void SetText(int control, const char* text) { texts.push_back(std::to_string(control) + " " + text); }
    void PBSetProgress(int control, double fraction) {
        EXPECT_EQ(control, 104);
        bar.push_back(fraction);
    }
    bool IsToStop() { return asked++ >= stopAt; }

    std::vector<std::string> texts;
    std::vector<double> bar;
    int asked = 0;
    int stopAt = 1000;
};

struct Rendering {
    Rendering(const LSoundSource& source, int rate, std::uint8_t channels, int stopAt = 1000,
              int fullAfter = -1, int fullBy = 0)
        : sink(LSoundSink::Make<ArraySink>(rate, channels, fullAfter, fullBy)),
          job("Saving Wave File", source, sink) {
        dialog.stopAt = stopAt;
        result = Process(dialog, job);
    }
    const ArraySink& Sunk() const { return static_cast<const ArraySink&>(*sink); }

    Recorder dialog;
    LSoundSink sink;
    LPRSourceToSink job;
    LProcessResult result;
};

LSoundSource Frames(int count, std::uint8_t channels = 1, int rate = 44100) {
    return ArrayOf(ReferenceNoise(count * channels, 1000), rate, channels);
}

TEST(RenderJob, CopiesInBlocksAndShowsThemOneBehind) {
    const Rendering run(Frames(2 * 8192 + 1), 44100, 1);
    EXPECT_EQ(run.result, LProcessResult::Completed);
    EXPECT_EQ(run.Sunk().writes, (std::vector<int>{8192, 8192, 1}));
    EXPECT_EQ(run.Sunk().samples, ReferenceNoise(16385, 1000));
    const double step = 8192.0 / 16385;
    EXPECT_EQ(run.dialog.bar, (std::vector<double>{0, 0, step, 2 * step}));
    EXPECT_EQ(run.dialog.texts, (std::vector<std::string>{"101 Saving Wave File", "102 Please wait..."}));
    EXPECT_EQ(Rendering(Frames(8192), 44100, 1).Sunk().writes, std::vector<int>{8192});
}

TEST(RenderJob, StartsWhereTheSourceStandsAndStopsBeforeTheNextBlock) {
    const LSoundSource source = Frames(50000);
    source->Seek(49990);
    EXPECT_EQ(Rendering(source, 44100, 1).Sunk().writes, std::vector<int>{10});
    const Rendering run(Frames(50000), 44100, 1, 2);
    EXPECT_EQ(run.result, LProcessResult::Stopped);
    EXPECT_EQ(run.Sunk().writes, (std::vector<int>{8192, 8192}));
}

TEST(RenderJob, NothingIsWrittenForAnEmptyOrFailedSource) {
    const Rendering empty(Frames(0), 44100, 1), failed(LSoundSource(), 44100, 1), mute(Frames(5), 44100, 0);
    EXPECT_EQ(empty.result, LProcessResult::Completed);
    EXPECT_EQ(failed.result, LProcessResult::Failed);
    EXPECT_TRUE(empty.Sunk().writes.empty() && failed.Sunk().writes.empty());
    Recorder dialog;
    LPRSourceToSink toNowhere("x", Frames(5), LSoundSink());
    EXPECT_EQ(Process(dialog, toNowhere), LProcessResult::Failed);
    EXPECT_EQ(mute.result, LProcessResult::Failed);
    EXPECT_EQ(mute.Sunk().channels, 1);
}

TEST(RenderJob, ConvertsToTheSinkOrWritesSilenceWhereNothingConverts) {
    EXPECT_EQ(Rendering(Frames(8000, 1, 8000), 44100, 2).Sunk().samples.size(), 88000u) << "8000 / 2 * 11";
    for (const auto& [from, to] : {std::pair{6, 2}, {1, 6}}) {
        const Rendering run(Frames(100, static_cast<std::uint8_t>(from)), 44100,
                            static_cast<std::uint8_t>(to));
        EXPECT_EQ(run.result, LProcessResult::Completed);
        EXPECT_EQ(run.Sunk().samples, std::vector<int>(100 * static_cast<std::size_t>(to))) << from;
    }
}

TEST(RenderJob, WhatIsTooLoudIsBroughtDown) {
    const LSoundSource loud = ArrayOf(std::vector<int>(9000, 1048544), 44100, 1, 1048544);
    // The gain is 524272 * 512 / 16384 * 512 = 8388096, whose product with the sample, less its lowest part,
    // is 521985 + 2031 + 223.
    const std::vector<int> written = Rendering(loud, 44100, 1).Sunk().samples;
    EXPECT_EQ(std::vector<int>(written.begin(), written.begin() + 5000), std::vector<int>(5000, 524239));
}

TEST(RenderJob, ASinkThatTakesNoMoreEndsTheJobAtOnce) {
    const std::tuple<int, int, LProcessResult> cases[] = {
        {ENOSPC, 1000, LProcessResult::Failed},
        {EINTR, 1000, LProcessResult::Failed},
        {EINTR, 2, LProcessResult::Stopped}}; // the user's own stop broke the write off
    for (const auto& [error, stopAt, result] : cases) {
        const Rendering run(Frames(5 * 8192), 44100, 1, stopAt, 2, error);
        EXPECT_EQ(run.result, result);
        EXPECT_EQ(run.Sunk().writes.size(), 2U);
    }
}

} // namespace
