#include "gui/sound_view.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::string Join(const LTicks& marks) {
    std::string all;
    for (const LTick& tick : marks.ticks)
        all += tick.text + " ";
    return all + marks.unit;
}

TEST(SoundView, AxesAreMarkedAtRoundValues) {
    const LAxis audible{20, 20'000, true};
    struct {
        const char* reason;
        LTicks marks;
        std::string texts;
    } const cases[] = {
        {"decades by 1, 2 and 5", MarkHz(audible, 12), "20 50 100 200 500 1k 2k 5k 10k 20k Hz"},
        {"decades alone where there is little room", MarkHz(audible, 5), "100 1k 10k Hz"},
        {"within a decade evenly", MarkHz({900, 1150, true}, 4), "900 1000 1100 Hz"},
        {"high up in kHz", MarkHz({0, 22'050, false}, 5), "0 5 10 15 20 kHz"},
        {"as many places as the step has", MarkHz({9999, 10'001, false}, 4),
         "9.9990 9.9995 10.0000 10.0005 10.0010 kHz"},
        {"short times", MarkSeconds({0, 0.004, false}, 4), "0 1 2 3 4 ms"},
        {"shorter ones", MarkSeconds({0.0001, 0.0004, false}, 3), "100 200 300 400 µs"},
        {"long ones", MarkSeconds({0, 600, false}, 6), "0 100 200 300 400 500 600 s"},
        {"both signs", MarkNumbers({-0.2, 0.2, false}, 4), "-0.2 -0.1 0.0 0.1 0.2 "}};
    for (const auto& [reason, marks, texts] : cases)
        EXPECT_EQ(Join(marks), texts) << reason;
    EXPECT_NEAR(MarkHz(audible, 12).ticks[5].place, 0.5663, 0.0001) << "log 50 of log 1000";
}

/// Two channels of a tenth of a second at 1000 frames a second, and a spectrum of 10 Hz a bin.
LShownSoundPtr MakeSound() {
    auto sound = std::make_shared<LShownSound>();
    sound->rate = 1000;
    sound->seconds = 0.1;
    sound->hzPerBin = 10;
    sound->peak = 0.41;
    sound->lowestHz = 100;
    sound->figures = {{"peak -7.7 dBFS"}, {", limiter 3.2 dB", true}};
    sound->nameHz = [](double hz) { return hz > 100 ? "A4" : ""; };
    sound->channels.resize(2);
    for (auto& channel : sound->channels) {
        channel.samples.assign(100, 0.1F);
        channel.spectrum.assign(51, {-100});
    }
    sound->channels[1].samples[1] = -0.41F;
    sound->channels[0].spectrum[44] = {-20.3F, 0.02F};
    return sound;
}

TEST(SoundView, IsReadZoomedAndCopied) {
    using enum LPlot;
    LSoundView view;
    EXPECT_FALSE(view.GetReading());
    view.Show(MakeSound());
    EXPECT_EQ(view.GetAxis(Wave), (LAxis{0, 0.04, false})) << "four periods of 100 Hz";
    EXPECT_EQ(view.GetAxis(Spectrum), (LAxis{10, 500, true}));
    EXPECT_EQ(view.GetSound().GetWaveTop(), 0.5);
    view.SetLook({.isWhole = true, .isLinear = true});
    EXPECT_EQ(view.GetAxis(Wave), (LAxis{0, 0.1, false}));

    const auto read = [&](LPlot plot, double place, double reach) {
        view.Point(plot, place, reach);
        return view.GetReading()->text;
    };
    EXPECT_EQ(read(Wave, 0.01, 0), "1.00 ms, left 0.10, right -0.41");
    EXPECT_EQ(read(Spectrum, 0.87, 0.02), "440.2 Hz, left -20.3, right -100.0 dBFS, A4") << "the line nearby";
    EXPECT_NEAR(view.GetReading()->place, 0.8804, 1e-6);
    EXPECT_EQ(read(Spectrum, 0.1, 0.01), "50.0 Hz, left -100.0, right -100.0 dBFS");
    EXPECT_EQ(view.Describe(), "50.0 Hz, left -100.0, right -100.0 dBFS. peak -7.7 dBFS, limiter 3.2 dB");

    view.Zoom(Spectrum, 0.88, 2);
    EXPECT_EQ(view.GetAxis(Spectrum), (LAxis{220, 470, false})) << "440 Hz stays at 0.88";
    view.Move(Spectrum, 10);
    EXPECT_EQ(view.GetAxis(Spectrum), (LAxis{250, 500, false})) << "no further than the end";
    view.Zoom(Spectrum, 0.5, 100);
    EXPECT_EQ(view.GetAxis(Spectrum).from, 250) << "no closer than 16 bins";
    view.Show(MakeSound());
    EXPECT_EQ(view.GetAxis(Spectrum).from, 250) << "stays with the next sound";
    view.ResetZoom();
    view.Zoom(Wave, 0, 5);
    view.SetLook({.hasSpectrum = false, .isWhole = true});
    const std::string csv = view.WriteCsv();
    EXPECT_TRUE(csv.starts_with("seconds,left,right\n0,0.100000001,0.100000001\n0.001,0.100000001,-0.4"));
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 1 + 21) << "0 to 20 ms";
    view.SetLook({.hasWave = false, .isLinear = true});
    EXPECT_TRUE(view.WriteCsv().starts_with("hz,left_dbfs,right_dbfs\n0,-100.00,-100.00\n10,"));
    EXPECT_NE(view.WriteCsv().find("\n440,-20.30,-100.00\n"), std::string::npos);
}

} // namespace
