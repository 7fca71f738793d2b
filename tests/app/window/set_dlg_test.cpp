#include "app/window/set_dlg_layout.h"
#include "support/app_window.h"

namespace {

TEST_F(App, PlaySettingsAreCheckedAndKept) {
    const std::string semitones =
        "Play Settings|Please enter valid SemiTone value. It must be between 1 and 12.";
    const std::string frequency = "Play Settings|Please enter Frequency value";
    struct {
        int radio;
        const char *semitones, *frequency;
        std::string box, kept; ///< the step, whether it is semitones, and what is shown next time
    } const cases[] = {{SetBySemitone, "12", "1.0", "", "12 1 12 1.0"},
                       {SetBySemitone, " 3 ", "none", "", "3 1 3 none"},
                       {SetBySemitone, "13", "1.0", semitones, "- - - -"},
                       {SetBySemitone, "0", "1.0", semitones, "- - - -"},
                       {SetByFrequency, "99", " 2.5 ", "", "2.5 0 99 2.5"},
                       {SetByFrequency, "1", "0", frequency, "- - - -"},
                       {SetByFrequency, "1", "abc", frequency, "- - - -"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.semitones) + ", " + each.frequency);
        const Forgotten again;
        dialogs = {[&](MemoryDialog& box) {
            EXPECT_EQ(box.caption, "Play Settings");
            EXPECT_EQ(box.controls.GetValue(SetBySemitone), 1);
            EXPECT_EQ(box.controls[SetSemitones].least, 1);
            EXPECT_EQ(box.controls[SetSemitones].most, 12);
            EXPECT_EQ(box.controls[SetFrequency].toolTip + box.controls[SetSemitones].toolTip,
                      "FrequencySemiTone");
            box.Set(SetAutoplay, 1);
            for (const int radio : Ints{SetByFrequency, SetBySemitone, each.radio}) {
                box.Set(radio, 1);
                EXPECT_EQ(box.controls[SetFrequency].enabled, radio == SetByFrequency);
                EXPECT_EQ(box.controls[SetSemitones].enabled, radio == SetBySemitone);
            }
            box.controls.SetText(SetSemitoneText, each.semitones);
            box.controls.SetText(SetFrequency, each.frequency);
            box.Press(LCommandOk);
            EXPECT_EQ(box.ended, each.box.empty());
        }};
        Run([&](MemoryMainWindow&) {
            Send({CommandPreferences});
            EXPECT_EQ(Boxes(), each.box);
        });
        EXPECT_EQ(Stored(Setting::Autoplay), "1") << "also where the rest is refused";
        EXPECT_EQ(Stored(Setting::StepHz) + " " + Stored(Setting::StepsBySemitone) + " " +
                      Stored(Setting::ShownSemitones) + " " + Stored(Setting::ShownHz),
                  each.kept);
    }
}

TEST_F(App, PlaySettingsShowWhatIsKeptAndAreHeard) {
    Setting::StepsBySemitone.Set(false);
    Setting::StepHz.Set("25");
    Setting::ShownSemitones.Set(7);
    Setting::HighRate.Set(96000);
    for (const int button : {LCommandCancel, LCommandOk})
        dialogs.emplace_back([button](MemoryDialog& box) {
            EXPECT_EQ(box.controls.GetText(SetFrequency), "25");
            EXPECT_EQ(box.controls.GetText(SetSemitoneText), "7");
            EXPECT_EQ(box.controls.GetValue(SetByFrequency), 1);
            EXPECT_EQ(box.controls[SetQuality].choices.at(3), "High, saved at 96 kHz");
            EXPECT_EQ(box.controls.GetValue(SetQuality), 3);
            box.Set(SetQuality, 0);
            box.Press(button);
        });
    Run([&](MemoryMainWindow& window) {
        window.Choose(CommandPlay);
        EXPECT_TRUE(WaitForPlayback(1));
        Send({CommandPreferences});
        EXPECT_EQ(output.opened, 1);
        EXPECT_EQ(output.GetRequest().format.sample, LPlayFormat::Sample::Float);
        Send({CommandPreferences});
        EXPECT_TRUE(WaitForPlayback(2)) << "played anew";
        EXPECT_EQ(output.GetRequest().format.sample, LPlayFormat::Sample::Int16);
        Send({CommandIncrease});
        EXPECT_EQ(Rows(), Texts{"Sine 1 Frequency=1025.00Hz"});
    });
}

} // namespace
