#include "support/app_window.h"
#include "support/full_disk.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST_F(App, RowsStandInOrder) {
    Run([&](MemoryMainWindow&) {
        Send({CommandStereo, CommandVariableAmplitude, CommandSweepLinear, Tones(2),
              WaveformCommand(ToneSawTooth)});
        EXPECT_EQ(Rows().size(), 11U);
        EXPECT_EQ(Rows().front(), "Saw Tooth 1 Start Left Frequency=1000.00Hz");
        EXPECT_EQ(Rows().back(), "Saw Tooth Duration=1000ms");
        EXPECT_EQ(List().looks[5].shade, LRowShade::Shaded) << "the second component's";
        EXPECT_NE(List().looks[4].shade, LRowShade::Shaded);
        List().Select({4, 6, 10});
        Send({CommandMono});
        EXPECT_EQ(List().selection, (Ints{2, 4, 6})) << "the rows that are still there stay selected";
        Send({WaveformCommand(TonePinkNoise)});
        EXPECT_EQ(Rows(), Texts{"Pink Noise Duration=1000ms"});
        EXPECT_EQ(List().selection, Ints{0});
        Send({CommandStereo, WaveformCommand(ToneSine)});
        List().Select({4});
        Send({CommandContinuous});
        EXPECT_EQ(List().selection, Ints{3}) << "the row that is nearest to where it stood";
    });
}

TEST_F(App, StepsEverySelectedRowOnceAndRestartsOnce) {
    Run([&](MemoryMainWindow&) {
        Send({CommandSpecifiedDuration, CommandVariableAmplitude, CommandPlay});
        EXPECT_TRUE(WaitForPlayback(1));
        List().Select({0, 1, 2});
        Send({CommandDecrease, CommandDecrease, CommandIncrease});
        EXPECT_THAT(Rows(), ElementsAre("Sine 1 Frequency=943.87Hz", "Sine 1 Relative Amplitude=-1dB",
                                        "Sine Duration=900ms"));
        EXPECT_TRUE(WaitForPlayback(4));
        const std::string hint = "Tone details (double click to modify)"; // numpy: 1200 * log2(943.87 / 440)
        EXPECT_EQ(List().looks[0].toolTip, "A#5 +21 ct\n" + hint);
        EXPECT_EQ(List().looks[1].toolTip, "-13.04 dBFS\n" + hint);
        EXPECT_EQ(List().looks[2].toolTip, hint);
        List().Select({});
        Send({CommandIncrease});
        EXPECT_EQ(List().rows[0][1], "943.87Hz");
    });
    EXPECT_EQ(output.opened, 4);
}

TEST_F(App, TypedValuesAreTakenUntilOneIsCancelled) {
    Texts prompts;
    const auto prompted = [&](const std::function<void(MemoryDialog&)>& then) {
        return [&prompts, then](MemoryDialog& box) {
            prompts.push_back(box.controls.GetText(101) + "=" + box.controls.GetText(102));
            EXPECT_EQ(box.controls[102].toolTip, box.controls.GetText(101)) << "for a screen reader";
            then(box);
        };
    };
    dialogs = {prompted(Typed("440,5")), prompted([](MemoryDialog&) {}), prompted(Typed("2"))};
    Run([&](MemoryMainWindow&) {
        Send({Tones(3)});
        List().Select({2});
        List().Select({0, 1, 2});
        Send({CommandEditValue});
        EXPECT_THAT(Rows(), ElementsAre("Sine 1 Frequency=1000.00Hz", "Sine 2 Frequency=1000.00Hz",
                                        "Sine 3 Frequency=440.50Hz"));
    });
    EXPECT_THAT(prompts, ElementsAre("Sine 3 Frequency=1000.00Hz", "Sine 1 Frequency=1000.00Hz"))
        << "in the order in which they were selected";
}

TEST_F(App, ABoxTellsWhatItMakesOfAValueAndTakesNoOther) {
    constexpr int reading = 103, place = 105, rest = 106;
    Texts seen;
    const auto see = [&](MemoryDialog& box) {
        seen.push_back(box.controls.GetText(102) + " " + box.controls.GetText(reading));
    };
    dialogs = {[&](MemoryDialog& box) {
                   EXPECT_EQ(box.controls.GetText(place), "1 of 4");
                   for (const char* text : {"A3", "nan"}) {
                       box.Type(102, text);
                       see(box);
                   }
                   EXPECT_TRUE(box.controls[102].wrong);
                   box.Press(LCommandOk);
                   EXPECT_FALSE(box.ended) << "nor is it closed";
                   box.Step(102, 1); // from nothing
                   box.Type(102, "1.5k");
                   box.Step(102, -12);
                   see(box);
                   box.Set(rest, 1);
                   box.Press(LCommandOk);
               },
               [&](MemoryDialog& box) {
                   EXPECT_EQ(box.controls.GetText(place), "4 of 4") << "the length is no frequency";
                   see(box);
                   box.Press(LCommandOk);
               }};
    SonvireData fine = Tone440(true);
    fine.numTones = 3;
    fine.startLeftHz[0] = 440.126;
    Run(
        [&](MemoryMainWindow&) {
            List().Select({0, 1, 2, 3});
            Send({CommandEditValue});
            EXPECT_THAT(Rows(), ElementsAre("Sine 1 Frequency=750.00Hz", "Sine 2 Frequency=750.00Hz",
                                            "Sine 3 Frequency=750.00Hz", "Sine Duration=1000ms"));
            toolkit->dialogScripts = {PressOk};
            dialog->OpenDocuments({folder / "fine.tdf"});
            List().Select({0});
            Send({CommandEditValue});
        },
        {WriteTone("fine.tdf", fine)});
    EXPECT_EQ(KeptTone().startLeftHz[0], 440.126) << "what is not typed is not rounded";
    EXPECT_THAT(seen, ElementsAre("A3 = 220.00Hz, A3", "nan is no frequency from 0 to 22050 Hz",
                                  "750.00Hz = 750.00Hz, F#5 +23 ct", "1000ms = 1000ms"));
}

TEST_F(App, APlaybackFollowsTheToneUntilItEndsOrFails) {
    Run([&](MemoryMainWindow& window) {
        Send({CommandSpecifiedDuration});
        EXPECT_EQ(output.opened, 0) << "what is stopped stays stopped";
        window.Choose(CommandPlay);
        EXPECT_TRUE(WaitForPlayback(1));
        Send({WaveformCommand(ToneSquare)});
        EXPECT_TRUE(Wait([&] { return output.opened == 2 && output.queuedFrames == 44100; }));
        EXPECT_EQ(output.GetRequest().title, "Square");
        EXPECT_FALSE((*window.menu)[CommandPlay].enabled);
        output.Take(44100);
        EXPECT_TRUE(Wait([&] { return (*window.menu)[CommandPlay].enabled; }));
        EXPECT_EQ(Control(ControlPosition).text, "00:00.0");
        Send({CommandLoop, CommandPlay});
        EXPECT_EQ(Control(ControlPosition).text, "00:00.0 / ↻ 00:01.0");
        EXPECT_TRUE(WaitForPlayback(3));
        output.Fail(LSoundChannelState::NoOutput);
        EXPECT_TRUE(Wait([&] { return !toolkit->boxes.empty(); }));
        EXPECT_THAT(Boxes(), StartsWith("Sound Play Error|Unable to start playback.\r\n\r\n"));
        EXPECT_TRUE((*window.menu)[CommandPlay].enabled);
    });
}

TEST_F(App, QuittingIsClosing) {
    const std::function<void(MemoryMainWindow&)> ways[] = {
        [](MemoryMainWindow& window) { window.Key(LKeyControl, 'w'); },
        [](MemoryMainWindow& window) { window.Key(LKeyControl, 'q'); },
        [](MemoryMainWindow& window) { window.Choose(LCommandQuit); }};
    for (int way = 0; way < 3; ++way) {
        Run([&](MemoryMainWindow& window) {
            const MemoryMenu& menu = *window.menu;
            EXPECT_EQ(menu[LCommandQuit].key + menu[CommandCloseWindow].key, "Ctrl+QCtrl+W");
            EXPECT_EQ(menu[CommandIncrease].key, "+") << "the main one of three";
            EXPECT_EQ((*window.toolBar)[CommandPlay].key, "Start tone (Space)");
            window.geometry.x = way;
            ways[way](window);
            EXPECT_TRUE(toolkit->quit);
            EXPECT_FALSE(window.visible);
        });
        EXPECT_EQ(Setting::WindowX.Get(), way);
    }
}

TEST_F(App, TheLastToneAndPlaceComeBack) {
    Run([&](MemoryMainWindow& window) {
        EXPECT_EQ(window.geometry, (LWindowGeometry{200, 200, 800, 600, false}));
        Send({CommandStereo, Tones(2), CommandPlay});
        window.geometry = {10, 20, 900, 500, true};
    });
    EXPECT_TRUE(Setting::FirstRun.Get());
    EXPECT_EQ(output.opened, output.closed) << "nothing plays on";
    EXPECT_EQ(KeptTone().flags, ToneFlagStereo);
    Setting::Autoplay.Set(true);
    const int before = output.opened;
    Run(
        [&](MemoryMainWindow& window) {
            EXPECT_EQ(window.geometry, (LWindowGeometry{10, 20, 900, 500, true}));
            EXPECT_EQ(Rows(), Texts{"Sine 1 Frequency=440.00Hz"});
            EXPECT_TRUE((*window.menu)[CommandStop].enabled);
            EXPECT_TRUE(WaitForPlayback(before + 2)) << "at the start, and again with the file";
        },
        {WriteTone("a.tdf", Tone440())});
}

TEST_F(App, SettingsThatCanNotBeKeptAreToldOnce) {
    Run([&](MemoryMainWindow&) {
        const FullDisk full;
        for (const int decibels : {1, 2})
            Setting::PlayVolume.Set(decibels);
        toolkit->DispatchPending();
        EXPECT_EQ(Boxes(), "Settings|Your settings can't be kept: File too large.");
    });
}

TEST_F(App, DocumentsAreOpenedByTheWayTheyCome) {
    const std::string tone = WriteTone("tone.tdf", Tone440());
    const std::string capitals = WriteTone("tone.TDF", Tone440());
    const std::string missing = folder / "missing.tdf";
    const std::string list = folder / "list.tdl";
    WriteBytes(list, tone + "\n300ms silence.\n");
    const std::string old = "Sine 1 Frequency=1000.00Hz", opened = "Sine 1 Frequency=440.00Hz";
    const std::string rejected = "Unrecognized File Type|Unrecognized tone file type.";
    const std::string unknown = "Unrecognized file type.|Sonvire does not process this type of file.";
    const std::string unread = "Error|The file \"" + missing + "\" can't be read: No such file or directory.";
    enum Way { Argument, Document, Early, Drop };
    struct {
        Way way;
        std::string path, row, box, remembered = "-";
    } const cases[] = {
        {Argument, tone, opened, "", tone},
        {Argument, capitals, opened, "", capitals},
        {Argument, list, tone + "=is endless; nothing behind it plays", ""},
        {Argument, folder / "a.folder/tone", old, ""},
        {Argument, folder / "a.txt", old, unknown},
        {Argument, missing, old, unread},
        {Document, tone, opened, "", tone},
        {Document, capitals, opened, "", capitals},
        {Document, list, old, rejected, list},
        {Early, tone, opened, "", tone},
        {Drop, tone, opened, "", tone},
        {Drop, list, tone + "=is endless; nothing behind it plays", ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.path);
        const Forgotten again;
        dialogs = {PressOk};
        Run(
            [&](MemoryMainWindow& window) {
                if (each.way == Document)
                    dialog->OpenDocuments({each.path});
                if (each.way == Drop)
                    window.Drop({each.path});
                toolkit->DispatchPending();
                EXPECT_EQ(Rows().at(0), each.row);
                EXPECT_EQ(Boxes(), each.box);
                EXPECT_EQ(Stored(Setting::File), each.remembered);
                EXPECT_EQ(Stored(Setting::FileFolder) + "/", each.remembered == "-" ? "-/" : folder / "");
            },
            each.way == Argument ? Texts{each.path, folder / "second.tdf"} : Texts{},
            [&](MainDialog& window) {
                if (each.way == Early)
                    window.OpenDocuments({each.path});
            });
    }
}

TEST_F(App, AListShowsItsLinesAndItsName) {
    WriteTone("tone.tdf", Tone440(true));
    const std::string why =
        "can't be read: No such file or directory; an endless sine plays, and nothing behind it";
    const std::string list = folder / "list.tdl";
    WriteBytes(list, "500ms silence.\n" + (folder / "gone.tdf") + "\ntone.tdf\nany.xyz\n");
    WriteBytes(folder / "any.xyz", "");
    dialogs = {PressOk};
    Run(
        [&](MemoryMainWindow&) {
            EXPECT_EQ(Rows(), (Texts{"500ms silence.=", (folder / "gone.tdf") + "=" + why,
                                     "tone.tdf=", list + "=\"any.xyz\" is of an unknown type and left out"}));
            EXPECT_EQ(List().rows[0][2] + List().rows[3][2], "41") << "the lowest plays first";
            EXPECT_EQ(List().looks[1].mark, LRowMark::Problem);
            EXPECT_EQ(List().looks[3].toolTip, folder / "any.xyz" + "\nPlays as number 1 of 4\nis of an "
                                                                    "unknown type and left out")
                << "the entry whose row it is";
            EXPECT_EQ(toolkit->boxes.at(0), "Error|File \"" + (folder / "gone.tdf") + "\" does not exist.");
            Send({CommandLoop, CommandLoop, CommandLoop});
            toolkit->DispatchPending();
            toolkit->boxes.clear();
            Send({CommandPlay, CommandStop, CommandPlay});
            toolkit->answers = {LMessageAnswer::Ok};
            EXPECT_TRUE(Wait([&] { return toolkit->boxes.size() > 1; }));
            EXPECT_EQ(toolkit->boxes[0], "Tone List|Not all of the list plays as it should:\n\n\"" +
                                             (folder / "any.xyz") +
                                             "\" is of an unknown type and left out (entry 1)\n\n\"" +
                                             (folder / "gone.tdf") + "\" " + why + " (entry 3)");
            EXPECT_THAT(toolkit->boxes[1], StartsWith("Unrecognized file type|"));
            EXPECT_EQ(toolkit->boxes.size(), 2U) << "once";
        },
        {list});
    EXPECT_EQ(KeptTone().GetListPath(), list);
    EXPECT_EQ(KeptTone().repeat, 1);
    Run(
        [&](MemoryMainWindow&) {
            EXPECT_EQ(Boxes(), "") << "of a list that is no longer there";
            EXPECT_EQ(List().selection, Ints{0}) << "not the length, as the list's rows";
        },
        {folder / "tone.tdf"});
    dialogs = {PressOk};
    Run([](MemoryMainWindow&) {}, {list});
    WriteBytes(list, "");
    Run([&](MemoryMainWindow&) { EXPECT_EQ(Rows(), Texts{list + "="}); });
    WriteBytes(list, "500ms silence.\n250ms silence.\n");
    Run([&](MemoryMainWindow&) {
        EXPECT_EQ(List().selection, Ints{0});
        Send({CommandLoop, CommandLoop, CommandIncrease, CommandIncreaseLarge});
    });
    EXPECT_EQ(KeptTone().durationMs, 750U) << "one pass, also where it loops, and no key steps it";
    for (int i = 0; i < 12; ++i)
        WriteBytes(list, ReadBytes(list) + "gone.tdf\n");
    Run([&](MemoryMainWindow& window) {
        EXPECT_EQ(toolkit->boxes.size(), 1U) << "cancelled, so no more of them";
        toolkit->boxes.clear();
        toolkit->answers.assign(20, LMessageAnswer::Ok);
        window.Drop(Texts(12, folder / "any.xyz"));
        toolkit->DispatchPending();
        EXPECT_EQ(toolkit->boxes.size(), 20U) << "ten of the list, and ten of what was dropped";
        EXPECT_EQ(toolkit->boxes.back(), "Unrecognized File Type|3 more of these are not shown.");
    });
    std::filesystem::remove(list);
    Run([&](MemoryMainWindow&) {
        EXPECT_EQ(Rows(), Texts{list + "=can't be read: No such file or directory"});
        Send({CommandPlay});
        EXPECT_TRUE(Wait([&] { return !toolkit->boxes.empty(); }));
        EXPECT_EQ(Boxes(), "Error|The file \"" + list + "\" can't be read: No such file or directory.");
    });
}

TEST_F(App, TheVolumeIsTakenFromTheSettings) {
    constexpr std::uint32_t Both = 0x10001;
    struct {
        const char* stored;
        std::uint32_t volume;
    } const cases[] = {{"", 180}, {"0", 180}, {"12", 240}, {"300", 256}, {"-35", 5}, {"-500", 0}};
    Run([&](MemoryMainWindow& window) {
        for (const auto& each : cases) {
            Setting::PlayVolume.SetText(each.stored);
            output.volume = 1;
            window.Choose(CommandPlay);
            EXPECT_TRUE(Wait([&] { return output.volume == each.volume * Both; })) << each.stored;
            window.Choose(CommandStop);
        }
        toolkit->DispatchPending();
        EXPECT_EQ(toolkit->boxes, Texts{}) << "a stop is no failure";
    });
}

TEST_F(App, ATonesFileIsSavedAndLoaded) {
    const std::string a = folder / "a.tdf", b = folder / "b.wav";
    files = {{a}, {a}, {folder / "new.tdf"}, {b}, {b}};
    Run([&](MemoryMainWindow&) {
        Send({CommandStereo, CommandSaveAsTone, CommandMono, CommandLoadTone});
        EXPECT_EQ(Rows().size(), 2U) << "stereo, as saved";
        Send({CommandSave});
        EXPECT_TRUE(std::filesystem::exists(folder / "new.tdf"));
        EXPECT_EQ(toolkit->choosers.back().name, "a.tdf");
        Send({CommandSave, CommandSaveAsWav});
        EXPECT_EQ(toolkit->boxes.size(), 2U);
        EXPECT_THAT(toolkit->boxes.back(), HasSubstr("No Duration Specified|"));
        EXPECT_FALSE(std::filesystem::exists(b));
        Send({CommandSpecifiedDuration, CommandSaveAsWav});
        EXPECT_EQ(std::filesystem::file_size(b), 46 + 44100 * 4U);
        EXPECT_EQ(toolkit->boxes.size(), 2U);
        toolkit->chosenFiles = {{folder / "w.wav"}, {folder / "v.tdl"}};
        Send({WaveformCommand(ToneWhiteNoise), CommandSaveList});
        EXPECT_EQ(toolkit->boxes.back(), "Error|The tone is no list, so there is none to save.");
        EXPECT_EQ(toolkit->chosenFiles.size(), 2U) << "none was asked for";
        Send({CommandSaveAsTone, CommandSave});
        EXPECT_FALSE(std::filesystem::exists(folder / "w.wav") || std::filesystem::exists(folder / "v.tdl"));
    });
}

} // namespace
