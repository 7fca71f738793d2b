#include "tone/tone_items.h"
#include "tone/typed_item.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;

SonvireData Flagged(int flags, int waveform = ToneSine, int tones = 1) {
    SonvireData tone;
    tone.flags = static_cast<std::uint16_t>(flags);
    tone.waveform = static_cast<std::uint8_t>(waveform);
    tone.numTones = static_cast<std::uint8_t>(tones);
    return tone;
}

TEST(ToneItems, AreNamedByTheMode) {
    constexpr int modes[] = {0, ToneFlagSweep, ToneFlagStereo, ToneFlagStereo | ToneFlagSweep};
    // The names in the modes, before "Frequency".
    const std::pair<unsigned int, std::array<std::string, 4>> cases[] = {
        {256, {"Sine 1 ", "Sine 1 Start ", "Sine 1 Left ", "Sine 1 Start Left "}},
        {527, {"", "", "Sine 16 Right ", "Sine 16 Start Right "}},
        {769, {"", "Sine 2 End ", "", "Sine 2 End Left "}},
        {1026, {"", "", "", "Sine 3 End Right "}}};
    for (const auto& [item, names] : cases)
        for (std::size_t mode = 0; mode < 4; ++mode)
            EXPECT_EQ(Flagged(modes[mode]).GetItemName(item),
                      names[mode].empty() ? "" : names[mode] + "Frequency")
                << item;
    const std::pair<unsigned int, const char*> always[] = {{1281, "Sine 2 Relative Amplitude"},
                                                           {1536, "Sine Duration"},
                                                           {1792, "Sine"},
                                                           {272, ""},
                                                           {1537, ""},
                                                           {0, ""},
                                                           {0xFFFFFFFF, ""}};
    for (const auto& [item, name] : always)
        for (const int mode : modes)
            EXPECT_EQ(Flagged(mode).GetItemName(item), name) << item;
    EXPECT_EQ(Flagged(0, TonePinkNoise).GetItemName(1281), "Pink Noise 2 Relative Amplitude");
    EXPECT_EQ(Flagged(0, 9).GetItemName(1536), " Duration");
}

/// Levels are 20 log10 of 92682 and 131072 of 524288; numpy names the notes.
TEST(ToneItems, AreTypedAsPeopleWriteThem) {
    constexpr unsigned int hz = ItemStartLeft, db = ItemAmplitude + 1, ms = ItemDuration;
    const std::string noHz = "is no frequency from 0 to 22050 Hz", noDb = "is no level from -127 to 0 dB";
    const std::tuple<unsigned int, const char*, const char*, std::string> cases[] = {
        {hz, "1.5kHz", "1500", "= 1500.00Hz, F#6 +23 ct"},
        {hz, "C#5 +3 ct", "555.326737", "= 555.33Hz, C#5 +3 ct"},
        {hz, "0", "0", "= 0.00Hz"},
        {hz, "-0", "0", "= 0.00Hz"},
        {hz, "22.05k", "22050", "= 22050.00Hz, F10 -23 ct"},
        {hz, "22051", "", noHz},
        {hz, "-1", "", noHz},
        {hz, "", "", noHz},
        {hz, "inf", "", noHz},
        {hz, "1,000", "", noHz + "; a comma before three digits may mean two things"},
        {db, "-3 dB", "-3", "= -3dB, -15.04 dBFS"},
        {db, "-127", "-127", "= -127dB, silence"},
        {db, "1", "", "Please enter negative value between [-127 .. 0]"},
        {db, "-1e300", "", "Please enter negative value between [-127 .. 0]"},
        {db, "3 Hz", "", noDb},
        {ms, "1:30", "90000", "= 90000ms"},
        {ms, "0.4", "", "Please enter positive value"},
        {ms, "14h", "", "lasts longer than the 13 and a half hours that a tone can be counted for"},
        {ms, "1e99h", "", "lasts longer than the 13 and a half hours that a tone can be counted for"},
        {ms, "A4", "", "is no duration"},
        {ItemWaveform, "1", "", ""}};
    for (const auto& [item, text, value, words] : cases) {
        const TypedItem typed =
            ReadTypedItem(Flagged(ToneFlagVariableAmplitude | ToneFlagDuration), item, text, 22050);
        EXPECT_EQ(typed.value, value) << text;
        EXPECT_EQ(typed.words, words) << text;
    }
    EXPECT_EQ(ReadTypedItem(SonvireData(), hz, "30k", 48000).value, "30000");
    EXPECT_EQ(ReadTypedItem(SonvireData(), hz, "48001", 48000).words, "is no frequency from 0 to 48000 Hz");
}

TEST(ToneItems, ShowTheirValuesWithUnits) {
    SonvireData tone = Flagged(ToneFlagStereo);
    tone.startRightHz[1] = 440.126;
    tone.amplitudeDb[0] = -12;
    tone.durationMs = 1500;
    const std::pair<unsigned int, const char*> values[] = {
        {256, "1000.00Hz"}, {513, "440.13Hz"}, {768, "1000.00Hz"}, {1024, "1000.00Hz"},
        {1280, "-12dB"},    {1536, "1500ms"},  {1792, ""},         {300, ""}};
    for (const auto& [item, value] : values) {
        tone.flags = ToneFlagStereo;
        EXPECT_EQ(tone.GetItemValue(item), value) << item;
        tone.flags = 0;
        EXPECT_EQ(tone.GetItemValue(item), item == 513 || item == 1024 ? "" : value) << item << " in mono";
    }
    tone.startLeftHz[0] = 1e300;
    EXPECT_EQ(tone.GetItemValue(256).size(), 301 + 3 + 2u) << "however long";
}

TEST(ToneItems, TakeTypedTexts) {
    const char* const duration = "DurationPlease enter positive value";
    const char* const amplitude = "AmplitudePlease enter negative value between [-127 .. 0]";
    const std::tuple<unsigned int, const char*, const char*, const char*> cases[] = {
        {1536, "250ms", "250ms", ""},
        {1536, "12.7", "12ms", ""},
        {1536, "abc", "1000ms", duration},
        {1536, "0", "1000ms", duration},
        {1536, "-5", "1000ms", duration},
        {1280, "-3", "-3dB", ""},
        {1280, "-127dB", "-127dB", ""},
        {1280, "5", "0dB", amplitude},
        {1280, "-200", "-127dB", amplitude},
        {256, "440Hz", "440.00Hz", ""},
        {256, "-1.5", "-1.50Hz", ""},
        {256, "99999", "99999.00Hz", ""},
        {256, "x", "0.00Hz", ""},
        {1792, "7", "", ""},
        {99999, "7", "", ""}};
    for (const auto& [item, typed, shown, message] : cases) {
        SonvireData tone;
        const LNotice notice = tone.SetItemValue(item, typed).value_or(LNotice());
        EXPECT_EQ(tone.GetItemValue(item), shown) << item << " " << typed;
        EXPECT_EQ(notice.title + notice.text, message) << typed;
    }
    SonvireData tone;
    EXPECT_FALSE(tone.SetItemValue(1024 + 15, "1000.1"));
    EXPECT_EQ(tone.endRightHz[15], 1000.0999755859375) << "single precision";
}

/// The item's value after one step of each kind: up, down, large up, large down.
std::vector<std::string> Steps(unsigned int item, const char* from, const FrequencyStep& step) {
    const std::function<void(SonvireData&)> steps[] = {
        [&](SonvireData& tone) { tone.IncreaseItem(item, step); },
        [&](SonvireData& tone) { tone.DecreaseItem(item, step); },
        [&](SonvireData& tone) { tone.IncreaseItemLarge(item); },
        [&](SonvireData& tone) { tone.DecreaseItemLarge(item); }};
    std::vector<std::string> values;
    for (const auto& each : steps) {
        SonvireData tone;
        static_cast<void>(tone.SetItemValue(item, from));
        each(tone);
        values.push_back(tone.GetItemValue(item));
    }
    return values;
}

TEST(Stepping, StepsAreUnevenAndKeepToTheirRange) {
    const FrequencyStep semitone, octave{.semitones = 12}, hertz{.bySemitones = false, .hz = 2.5};
    const std::tuple<unsigned int, FrequencyStep, const char*, std::vector<std::string>> cases[] = {
        {1536, semitone, "1000", {"2000ms", "900ms", "6000ms", "500ms"}},
        {1536, semitone, "999", {"1099ms", "899ms", "1499ms", "499ms"}},
        {1536, semitone, "100", {"200ms", "100ms", "600ms", "100ms"}},
        {1536, semitone, "101", {"201ms", "1ms", "601ms", "101ms"}},
        {1536, semitone, "500", {"600ms", "400ms", "1000ms", "500ms"}},
        {1536, semitone, "501", {"601ms", "401ms", "1001ms", "1ms"}},
        {1536, semitone, "2000", {"3000ms", "1000ms", "7000ms", "1500ms"}},
        {1536, semitone, "5000", {"6000ms", "4000ms", "10000ms", "1ms"}},
        {1536, semitone, "4999", {"5999ms", "3999ms", "9999ms", "4499ms"}},
        {1280, semitone, "0", {"0dB", "-1dB", "0dB", "-1dB"}},
        {1280, semitone, "-90", {"-89dB", "-90dB", "-89dB", "-90dB"}},
        {1280, semitone, "-127", {"-126dB", "-127dB", "-126dB", "-127dB"}},
        {1792, semitone, "", {"", "", "", ""}},
        {256, semitone, "440", {"466.16Hz", "415.30Hz", "880.00Hz", "220.00Hz"}},
        {271, octave, "440", {"880.00Hz", "220.00Hz", "880.00Hz", "220.00Hz"}},
        {271, octave, "15000", {"20000.00Hz", "7500.00Hz", "20000.00Hz", "7500.00Hz"}},
        {271, octave, "0", {"0.02Hz", "0.00Hz", "0.00Hz", "0.00Hz"}}, // 0.01, an octave up
        {271, octave, "30000", {"30000.00Hz", "15000.00Hz", "20000.00Hz", "15000.00Hz"}},
        {271, hertz, "2", {"4.50Hz", "0.00Hz", "4.00Hz", "1.00Hz"}},
        {271, hertz, "19999", {"20000.00Hz", "19996.50Hz", "20000.00Hz", "9999.50Hz"}},
        {1027, semitone, "440", {"", "", "", ""}}, // not shown in mono
    };
    for (const auto& [item, step, from, values] : cases)
        EXPECT_EQ(Steps(item, from, step), values) << item << " from " << from;
}

TEST(ToneItems, AreShownInOrder) {
    constexpr int All = ToneFlagStereo | ToneFlagSweep | ToneFlagVariableAmplitude | ToneFlagDuration;
    EXPECT_THAT(GetShownItems(Flagged(All, ToneSquare, 2)),
                ElementsAre(256, 768, 512, 1024, 1280, 257, 769, 513, 1025, 1281, 1536));
    EXPECT_THAT(GetShownItems(Flagged(0)), ElementsAre(256));
    EXPECT_THAT(GetShownItems(Flagged(All, ToneWhiteNoise, 5)), ElementsAre(1536));
    EXPECT_THAT(GetShownItems(Flagged(ToneFlagStereo, ToneFromList)), ElementsAre(1792));
    EXPECT_EQ(GetShownItems(Flagged(0, ToneSine, 200)).size(), 16u);
    EXPECT_THAT(GetShownItems(Flagged(0, ToneSine, 0)), ElementsAre());
}

} // namespace
