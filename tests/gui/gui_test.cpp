#include "gui/format_fixed.h"
#include "gui/level_meter.h"
#include "support/memory_toolkit.h"
#include "support/temp_dir.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(Gui, AWindowStartsAndEndsInOrder) {
    MemoryToolkit toolkit;
    TestWindow window{toolkit};
    window.OpenDocuments({"early.tdf"});
    window.OpenDocuments({"ignored.tdf"});
    toolkit.running = [&] {
        MemoryMainWindow& shown = *toolkit.mainWindow;
        EXPECT_TRUE(shown.visible);
        EXPECT_EQ(shown.geometry, (LWindowGeometry{.x = 10, .y = 20, .width = 300, .height = 400}));
        shown.geometry.width = 555;
        window.Activate();
        EXPECT_EQ(shown.raised, 1);
        window.OpenDocuments({"a.tdf", "b.tdf"});
        shown.Drop({"dropped.tdf"});
        shown.CloseWindow();
        EXPECT_TRUE(toolkit.quit);
        EXPECT_FALSE(shown.visible);
        window.OpenDocuments({"late.tdf"});
    };
    window.Run();
    EXPECT_EQ(window.log, (Texts{"init", "load early.tdf", "enable", "run file.tdf", "load a.tdf",
                                 "load b.tdf", "drop dropped.tdf", "geometry 555", "destroy"}));
}

/// On a window that shows the rows a, b, c, d, e.
void OnList(const std::function<void(TestWindow&, LListView&, MemoryList&)>& use) {
    MemoryToolkit toolkit;
    TestWindow window{toolkit};
    toolkit.running = [&] {
        window.MakeList(5);
        use(window, *window.list, *toolkit.mainWindow->controls[List].list);
    };
    window.Run();
}

TEST(GuiList, KeepsTheOrderOfSelection) {
    OnList([](TestWindow& window, LListView& list, MemoryList& seen) {
        const std::pair<Ints, Ints> steps[] = {
            {{3}, {3}}, {{3, 1}, {3, 1}}, {{0, 1, 3, 4}, {3, 1, 0, 4}}, {{0, 1}, {1, 0}}, {{}, {}},
            {{4}, {4}}, {{4, 2}, {4, 2}}};
        for (const auto& [userSelects, expected] : steps) {
            seen.Select(userSelects);
            EXPECT_EQ(list.GetSelection(), expected);
        }
        window.commands.clear();
        list.SetLook(4, {.mark = LRowMark::Problem});
        list.SelectRows({4});
        EXPECT_TRUE(list.MoveSelection(0)); // e a b c d
        seen.Select({0, 3});
        window.commands.clear();
        EXPECT_EQ(seen.looks[0].mark, LRowMark::Problem);
        EXPECT_EQ(list.GetSelection(), (Ints{0, 3}));
        EXPECT_EQ(list.GetCurrent(), 3);
        list.InsertRow(0, "x"); // x e a b c d
        EXPECT_EQ(list.GetSelection(), (Ints{1, 4}));
        EXPECT_EQ(list.GetCurrent(), 4);
        EXPECT_TRUE(window.commands.empty()) << "the same rows are selected";
        list.DeleteRow(1); // x a b c d
        EXPECT_EQ(list.GetSelection(), Ints{3});
        EXPECT_EQ(window.commands, Ints{Selection});
        EXPECT_EQ(seen.selection, Ints{3});
        EXPECT_EQ(window.ListTexts(), "xabcd");
        EXPECT_EQ(list.GetData(3), 2u);
        EXPECT_EQ(list.GetCurrent(), 3);
        list.DeleteRows({3, 4});
        EXPECT_EQ(list.GetCurrent(), 2) << "the last row that is left";
        list.InsertRow(99, "z");
        EXPECT_EQ(window.ListTexts(), "xabz");
    });
}

TEST(GuiList, KeepsTheRowsThatAreStillThereWhenItIsRebuilt) {
    const std::tuple<const char*, Ints, std::vector<std::uint32_t>, Ints, int> cases[] = {
        {"a row went", {4, 1}, {0, 1, 3, 4}, {3, 1}, 1},
        {"the rows changed places", {1}, {1, 0}, {0}, 0},
        {"the selected row went", {2}, {0, 1}, {}, -1},
        {"rows that share their data count from the top", {0}, {9, 0, 0}, {1}, 1},
    };
    for (const auto& each : cases)
        OnList([&each](TestWindow& window, LListView& list, MemoryList& seen) {
            const auto& [name, selected, rows, expected, current] = each;
            list.SelectRows(selected);
            seen.Select(selected);
            window.commands.clear();
            {
                const LListRebuild rebuild(list);
                for (const std::uint32_t data : rows)
                    list.AppendRow("row", data);
            }
            EXPECT_EQ(list.GetSelection(), expected) << name;
            EXPECT_EQ(list.GetCurrent(), current) << name;
            EXPECT_EQ(window.commands, Ints{Selection}) << name;
        });
}

TEST(GuiList, StandsDraggedRowsTogetherWhereTheyAreDropped) {
    const std::tuple<Ints, int, const char*> cases[] = {
        {{0}, 3, "bcade"},       {{4}, 0, "eabcd"},    {{1, 3}, 0, "bdace"}, {{1, 3}, 5, "acebd"},
        {{0, 2, 4}, 2, "baced"}, {{0, 1}, 1, "abcde"}, {{2}, 2, "abcde"}};
    for (const auto& each : cases)
        OnList([&each](TestWindow& window, LListView& list, MemoryList& seen) {
            const auto& [dragged, before, expected] = each;
            list.SelectRows(dragged);
            window.commands.clear();
            list.SetLook(dragged[0], {.toolTip = "it"});
            seen.events.RowsDragged(before);
            const auto row = std::string(expected).find(static_cast<char>('a' + dragged[0]));
            EXPECT_EQ(seen.looks[row].toolTip, "it") << "a row keeps its look";
            EXPECT_EQ(window.ListTexts(), expected);
            EXPECT_EQ(window.commands, window.ListTexts() != "abcde" ? Ints{RowsMoved} : Ints{}) << expected;
        });
}

TEST(Gui, AFileToSaveGetsAnExtensionAndIsNotReplacedUnasked) {
    const TempDir dir;
    WriteBytes(dir / "old.tdf", "old");
    const std::vector<LFileFilter> filters = {{"Tone file", "*.tdf;"}, {"Wave file", "*.wav;*.wave"}};
    static constexpr const char* kinds[] = {".tdf", ".tdl", ".wav"};
    using enum LMessageAnswer;
    const std::tuple<const char*, std::deque<LChosenFile>, std::deque<LMessageAnswer>, std::string> cases[] =
        {{"default extension", {{dir / "new", 0}}, {}, dir / "new.tdf"},
         {"that of the filter", {{dir / "new", 1}}, {}, dir / "new.wav"},
         {"one that was typed stays", {{dir / "new.WAV", 0}}, {}, dir / "new.WAV"},
         {"a dot is none", {{dir / "St. Marks", 0}}, {}, dir / "St. Marks.tdf"},
         {"refused", {{dir / "new.TDL", 1}, {dir / "c", 0}}, {Ok}, dir / "c.tdf"},
         {"cancelled", {{"", 0}}, {}, ""},
         {"replaced", {{dir / "old", 0}}, {Yes}, dir / "old.tdf"},
         {"asked again", {{dir / "old.tdf", 0}, {dir / "b", 0}}, {No}, dir / "b.tdf"}};
    MemoryToolkit toolkit;
    TestWindow window{toolkit};
    toolkit.running = [&] {
        for (const auto& [name, chosen, answers, expected] : cases) {
            SCOPED_TRACE(name);
            toolkit.choosers.clear();
            toolkit.boxes.clear();
            toolkit.chosenFiles = chosen;
            toolkit.answers = answers;
            LFileChooser chooser{"Save", "/some/where/first.tdf", "/start", filters, "tdf", kinds};
            EXPECT_EQ(LChooseFileToSave(window, chooser), expected);
            EXPECT_EQ(toolkit.choosers.size(), chosen.size());
            EXPECT_EQ(toolkit.choosers[0].folder + toolkit.choosers[0].name, "/first.tdf") << "none exists";
            EXPECT_EQ(toolkit.boxes.size(), answers.size());
            EXPECT_EQ(chooser.folder + "/", expected.empty() ? "/start/" : dir / "");
        }
        for (const std::string& name : {dir / "old.tdf", std::string("old.tdf"), std::string("gone.tdf")}) {
            LFileChooser chooser{"Open", name, name[0] == '/' ? "/" : dir / "gone/too", filters, "tdf"};
            EXPECT_EQ(LChooseFileToRead(window, chooser), "");
            EXPECT_EQ(toolkit.choosers.back().folder + "/", dir / "");
            EXPECT_EQ(toolkit.choosers.back().name, name == "gone.tdf" ? "" : "old.tdf");
        }
    };
    window.Run();
}

TEST(LevelMeter, RisesAtOnceHoldsItsPeaksAndFallsFortyDecibelsASecond) {
    constexpr double Nothing = -std::numeric_limits<double>::infinity();
    LLevelMeter meter;
    // What is taken, and the milliseconds after that; then the first bar, its peak, and the text.
    const std::tuple<LMeterLevels, int, double, double, const char*> steps[] = {
        {{{Nothing, Nothing}, 0}, 0, -60, -60, "left -inf dBFS, right -inf dBFS"},
        {{{-3.16, 0.0003}, -3.2}, 1000, -3.16, -3.16, "left -3.2 dBFS, right 0.0 dBFS, Limiter -3.2 dB"},
        {{{-9.16, -72}, 0}, 100, -7.16, -3.16, "left -9.2 dBFS, right -72.0 dBFS, Limiter -3.2 dB"},
        {{{-9.16, -72}, 0}, 450, -9.16, -5.16, "left -9.2 dBFS, right -72.0 dBFS, Limiter -1.2 dB"},
        {{{-5}, 0}, 0, -5, -5, "-5.0 dBFS, Limiter -1.2 dB"},
        {{{Nothing}, -0.04}, 3000, -60, -60, "-inf dBFS"}};
    for (const auto& [levels, after, bar, peak, text] : steps) {
        meter.Take(levels);
        meter.Advance(after);
        EXPECT_DOUBLE_EQ(meter.GetChannels()[0].bar.Get(), bar) << text;
        EXPECT_DOUBLE_EQ(meter.GetChannels()[0].peak.Get(), peak) << text;
        EXPECT_EQ(meter.Describe(1), text);
    }
    EXPECT_FALSE(meter.IsMoving());
    constexpr double places[][2] = {{Nothing, 0}, {-60, 0}, {-9, 0.775}, {-3, 0.925}, {0, 1}, {1, 1}};
    for (const auto& [decibels, place] : places)
        EXPECT_DOUBLE_EQ(LLevelMeter::GetPlace(decibels), place);
    EXPECT_EQ(FormatFixed(-0.04, 1), "0.0");
}

} // namespace
