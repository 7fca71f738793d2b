#include "gui/level_fall.h"
#include "support/memory_toolkit.h"
#include "support/temp_dir.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

namespace {

/// Runs a window; `user` is all that happens to it.
class Gui : public testing::Test {
protected:
    void Run(const std::function<void(MemoryMainWindow&)>& user) {
        toolkit.running = [this, &user] { user(*toolkit.mainWindow); };
        window.Run();
    }

    MemoryToolkit toolkit;
    TestWindow window{toolkit};
};

TEST_F(Gui, AWindowStartsAndEndsInOrder) {
    window.OpenDocuments({"early.tdf"});
    window.OpenDocuments({"ignored.tdf"});
    Run([this](MemoryMainWindow& shown) {
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
    });
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
        struct {
            Ints userSelects, expected;
        } const steps[] = {{{3}, {3}},       {{3, 1}, {3, 1}}, {{0, 1, 3, 4}, {3, 1, 0, 4}},
                           {{0, 1}, {1, 0}}, {{}, {}},         {{4}, {4}},
                           {{4, 2}, {4, 2}}};
        for (const auto& step : steps) {
            seen.Select(step.userSelects);
            EXPECT_EQ(list.GetSelection(), step.expected);
        }
        window.commands.clear();
        list.MoveRow(4, 0); // e a b c d
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
    struct {
        const char* name;
        Ints selected;
        std::vector<std::uint32_t> rows;
        Ints expected;
        int current;
    } const cases[] = {
        {"a row went", {4, 1}, {0, 1, 3, 4}, {3, 1}, 1},
        {"the rows changed places", {1}, {1, 0}, {0}, 0},
        {"the selected row went", {2}, {0, 1}, {}, -1},
        {"rows that share their data count from the top", {0}, {9, 0, 0}, {1}, 1},
    };
    for (const auto& each : cases)
        OnList([&](TestWindow& window, LListView& list, MemoryList& seen) {
            list.SelectRows(each.selected);
            seen.Select(each.selected);
            window.commands.clear();
            {
                const LListRebuild rebuild(list);
                for (const std::uint32_t data : each.rows)
                    list.AppendRow("row", data);
            }
            EXPECT_EQ(list.GetSelection(), each.expected) << each.name;
            EXPECT_EQ(list.GetCurrent(), each.current) << each.name;
            EXPECT_EQ(window.commands, Ints{Selection}) << each.name;
        });
}

TEST(GuiList, StandsDraggedRowsTogetherWhereTheyAreDropped) {
    struct {
        Ints dragged;
        int before;
        const char* expected;
    } const cases[] = {{{0}, 3, "bcade"},    {{4}, 0, "eabcd"},       {{1, 3}, 0, "bdace"},
                       {{1, 3}, 5, "acebd"}, {{0, 2, 4}, 2, "baced"}, {{0, 1}, 1, "abcde"},
                       {{2}, 2, "abcde"}};
    for (const auto& each : cases)
        OnList([&](TestWindow& window, LListView& list, MemoryList& seen) {
            list.SelectRows(each.dragged);
            window.commands.clear();
            seen.events.RowsDragged(each.before);
            EXPECT_EQ(window.ListTexts(), each.expected);
            const bool moved = window.ListTexts() != "abcde";
            EXPECT_EQ(window.commands, moved ? Ints{RowsMoved} : Ints{}) << each.expected;
        });
}

TEST_F(Gui, AFileToSaveGetsAnExtensionAndIsNotReplacedUnasked) {
    const TempDir dir;
    WriteBytes(dir / "old.tdf", "old");
    static constexpr LFileFilter filters[] = {{"Tone file", "*.tdf;"}, {"Wave file", "*.wav;*.wave"}};
    struct {
        const char* name;
        std::vector<LChosenFile> chosen;
        std::vector<LMessageAnswer> answers;
        std::string expected;
        std::size_t choosers, boxes;
    } const cases[] = {
        {"default extension", {{dir / "new", 0}}, {}, dir / "new.tdf", 1, 0},
        {"that of the filter", {{dir / "new", 1}}, {}, dir / "new.wav", 1, 0},
        {"one that was typed stays", {{dir / "new.x", 1}}, {}, dir / "new.x", 1, 0},
        {"of a number", {{dir / "sine 1.5kHz", 0}}, {}, dir / "sine 1.5kHz.tdf", 1, 0},
        {"cancelled", {{"", 0}}, {}, "", 1, 0},
        {"replaced", {{dir / "old", 0}}, {LMessageAnswer::Yes}, dir / "old.tdf", 1, 1},
        {"asked again", {{dir / "old.tdf", 0}, {dir / "b", 0}}, {LMessageAnswer::No}, dir / "b.tdf", 2, 1},
    };
    Run([&](MemoryMainWindow&) {
        for (const auto& each : cases) {
            toolkit.choosers.clear();
            toolkit.boxes.clear();
            toolkit.chosenFiles = {each.chosen.begin(), each.chosen.end()};
            toolkit.answers = {each.answers.begin(), each.answers.end()};
            LFileChooser chooser{"Save", "/some/where/first.tdf", "/start", filters, "tdf"};
            EXPECT_EQ(LChooseFileToSave(window, chooser), each.expected) << each.name;
            EXPECT_EQ(toolkit.choosers.size(), each.choosers) << each.name;
            EXPECT_EQ(toolkit.choosers[0].name, "first.tdf") << each.name;
            EXPECT_EQ(toolkit.boxes.size(), each.boxes) << each.name;
            const bool cancelled = each.expected.empty();
            EXPECT_EQ(chooser.folder, cancelled ? "/start" : (dir / "").substr(0, (dir / "").size() - 1));
        }
    });
}

TEST(LevelFall, RisesAtOnceAndFallsFortyDecibelsASecond) {
    LLevelFall bar;
    bar.Take(-6);
    EXPECT_DOUBLE_EQ(bar.GetFraction(), 0.9);
    bar.Take(-127);
    bar.Advance(100);
    EXPECT_DOUBLE_EQ(bar.GetDecibels(), -10);
    bar.Take(-8);
    EXPECT_DOUBLE_EQ(bar.GetDecibels(), -8);
    EXPECT_FALSE(bar.IsFalling());
    bar.Take(-9);
    bar.Advance(100);
    EXPECT_DOUBLE_EQ(bar.GetDecibels(), -9) << "not below the level itself";
    bar.Take(5);
    EXPECT_DOUBLE_EQ(bar.GetFraction(), 1) << "full scale is the end of the bar";
}

} // namespace
