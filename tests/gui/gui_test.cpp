#include "gui/level_fall.h"
#include "gui/numeric_edit.h"
#include "gui/process_dialog.h"
#include "support/memory_toolkit.h"
#include "support/temp_dir.h"
#include "support/test_window.h"

#include <gtest/gtest.h>

namespace {

/// Runs a window with `init` as its start and `user` as all that happens to it.
class Gui : public testing::Test {
protected:
    void Run(std::function<void(TestWindow&)> init, std::function<void(MemoryMainWindow&)> user) {
        window.init = std::move(init);
        toolkit.running = [this, user = std::move(user)] { user(*toolkit.mainWindow); };
        window.Run();
    }

    MemoryToolkit toolkit;
    TestWindow window{toolkit};
};

TEST_F(Gui, AWindowStartsAndEndsInOrder) {
    window.OpenDocuments({"early.tdf"});
    window.OpenDocuments({"ignored.tdf"});
    Run({[](TestWindow& w) { w.SetCaption("Caption"); }}, [this](MemoryMainWindow& shown) {
        EXPECT_TRUE(shown.visible);
        EXPECT_EQ(shown.caption, "Caption");
        EXPECT_EQ(shown.geometry, (LWindowGeometry{.x = 10, .y = 20, .width = 300, .height = 400}));
        shown.geometry.width = 555;
        window.OpenDocuments({"a.tdf", "b.tdf"});
        shown.Drop({"dropped.tdf"});
        shown.CloseWindow();
        EXPECT_TRUE(toolkit.HasQuit());
        EXPECT_FALSE(shown.visible);
        window.OpenDocuments({"late.tdf"});
    });
    EXPECT_EQ(window.log, (Texts{"init", "load early.tdf", "enable", "run file.tdf", "load a.tdf",
                                 "load b.tdf", "drop dropped.tdf", "geometry 555", "destroy"}));
}

TEST_F(Gui, AMenuIsBuiltFromAFlatTable) {
    static constexpr LMenuEntry table[] = {{-1, "Tone"}, {5, "Edit"},  {0},       {-1, "Count"},
                                           {31, "1"},    {32, "2"},    {-1},      {-40, "Amp"},
                                           {-1},         {-1, "Play"}, {7, "Go"}, {-1}};
    Run([&](TestWindow& w) { w.SetMenu(table); },
        [this](MemoryMainWindow& shown) {
            EXPECT_EQ(shown.menu.lines,
                      (Texts{"Tone/Edit", "-", "Tone/Count/1", "Tone/Count/2", "Tone/Amp", "Play/Go"}));
            EXPECT_TRUE(shown.menu.items.at(40).hasCheck);
            EXPECT_FALSE(shown.menu.items.at(5).hasCheck);
            window.GetMenu().SetRadio(31, 32, 32);
            window.GetMenu().SetRadio(31, 32, 31);
            EXPECT_TRUE(shown.menu.items.at(31).marked);
            EXPECT_FALSE(shown.menu.items.at(32).marked);
            window.GetMenu().EnableRange(31, 32, false);
            window.GetMenu().Enable(999, true);
            shown.Choose(5);
            shown.Choose(32);
        });
    EXPECT_EQ(window.commands, Ints{5});
}

TEST_F(Gui, AToolBarShowsStatesBeforeItsCommandIsSent) {
    using enum LToolBarItemKind;
    static constexpr LToolBarItem table[] = {{Button, 1},  {Separator}, {Radio, 10}, {Radio, 11},
                                             {Toggle, 20}, {Radio, 30}, {Radio, 31}};
    const auto pressed = [](const MemoryToolBar& bar) {
        Ints commands;
        for (const auto& item : bar.items)
            if (item.pressed)
                commands.push_back(item.row.command);
        return commands;
    };
    std::vector<Ints> seen;
    Run(
        [&](TestWindow& w) {
            w.SetToolBarSmallIcons(200, w.small, table);
            w.onCommand = [&](int) { seen.push_back(pressed(toolkit.mainWindow->smallToolBars[200])); };
        },
        [&](MemoryMainWindow& shown) {
            MemoryToolBar& bar = shown.smallToolBars[200];
            for (const int command : {20, 10, 11, 11, 31, 20, 100})
                if (command == 100)
                    window.small.SetRadio(command);
                else
                    bar.Press(command);
            window.small.Enable(11, false);
            bar.Press(11);
        });
    EXPECT_EQ(seen, (std::vector<Ints>{{20}, {10, 20}, {11, 20}, {11, 20}, {11, 20, 31}, {11, 31}}))
        << "a radio item releases the others of its stretch only, and is never released itself";
}

TEST_F(Gui, KeysBecomeCommandsOnceEach) {
    static constexpr LKeyMapEntry table[] = {{LKeyF1, 0, LCommandHelp},
                                             {LKeyNone, ' ', 101},
                                             {LKeyControl, 's', 1110},
                                             {LKeyKeypadPlus, 0, 2101},
                                             {LKeyNone, '-', 2102}};
    static constexpr LMenuEntry entries[] = {{-1, "File"}, {1110, "Save"}, {-1}};
    Run(
        [&](TestWindow& w) {
            w.SetMenu(entries);
            w.SetKeys(w, table);
        },
        [](MemoryMainWindow& shown) {
            EXPECT_EQ(shown.menu.items.at(1110).key, "Ctrl+S");
            EXPECT_TRUE(shown.Key(LKeyF1));
            EXPECT_TRUE(shown.Key(LKeyNone, ' '));
            EXPECT_TRUE(shown.Key(LKeyNone, ' ', true)) << "used, without a command";
            EXPECT_TRUE(shown.Key(LKeyControl, 's'));
            EXPECT_FALSE(shown.Key(LKeyNone, 's'));
            EXPECT_FALSE(shown.Key(LKeyControl, '-'));
            EXPECT_TRUE(shown.Key(LKeyNone, '-'));
        });
    EXPECT_EQ(window.commands, (Ints{-LCommandHelp, 101, 1110, 2102}));
}

TEST_F(Gui, AListKeepsTheOrderOfSelection) {
    Run([](TestWindow& w) { w.MakeList(5); },
        [this](MemoryMainWindow& shown) {
            MemoryList& seen = shown.controls.controls.at(List).list;
            const LListView& list = *window.list;
            struct {
                Ints userSelects, expected;
            } const steps[] = {
                {{3}, {3}}, {{3, 1}, {3, 1}}, {{0, 1, 3, 4}, {3, 1, 0, 4}}, {{0, 1}, {1, 0}}, {{}, {}}};
            for (const auto& step : steps) {
                seen.Select(step.userSelects);
                EXPECT_EQ(list.GetSelection(), step.expected);
            }
            seen.Select({4});
            seen.Select({4, 2});
            window.commands.clear();
            window.list->MoveRow(4, 0); // e a b c d
            EXPECT_EQ(list.GetSelection(), (Ints{0, 3}));
            window.list->InsertRow(1, "x"); // e x a b c d
            EXPECT_EQ(list.GetSelection(), (Ints{0, 4}));
            EXPECT_TRUE(window.commands.empty()) << "the same rows are selected";
            window.list->DeleteRow(0); // x a b c d
            EXPECT_EQ(list.GetSelection(), Ints{3});
            EXPECT_EQ(window.commands, Ints{Selection});
            EXPECT_EQ(seen.selection, Ints{3});
            EXPECT_EQ(window.ListTexts(), "xabcd");
            EXPECT_EQ(list.GetData(3), 2u);
        });
}

TEST_F(Gui, ARebuiltListKeepsTheRowsThatAreStillThere) {
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
    for (const auto& each : cases) {
        MemoryToolkit own;
        TestWindow rebuilt(own);
        rebuilt.init = [&](TestWindow& w) {
            w.MakeList(5);
            w.list->SelectRows(each.selected);
            own.mainWindow->controls.controls.at(List).list.events->SelectionChanged(each.selected,
                                                                                     each.selected.back());
            w.commands.clear();
            {
                const LListRebuild rebuild(*w.list);
                for (const std::uint32_t data : each.rows)
                    w.list->AppendRow("row", data);
            }
            EXPECT_EQ(w.list->GetSelection(), each.expected) << each.name;
            EXPECT_EQ(w.list->GetCurrent(), each.current) << each.name;
            EXPECT_EQ(w.commands, Ints{Selection}) << each.name;
        };
        rebuilt.Run();
    }
}

TEST_F(Gui, DraggedRowsStandTogetherWhereTheyAreDropped) {
    struct {
        Ints dragged;
        int before;
        const char* expected;
    } const cases[] = {{{0}, 3, "bcade"},    {{4}, 0, "eabcd"},       {{1, 3}, 0, "bdace"},
                       {{1, 3}, 5, "acebd"}, {{0, 2, 4}, 2, "baced"}, {{0, 1}, 1, "abcde"},
                       {{2}, 2, "abcde"}};
    for (const auto& each : cases) {
        MemoryToolkit own;
        TestWindow dragging(own);
        dragging.init = [&](TestWindow& w) {
            w.MakeList(5);
            w.list->SelectRows(each.dragged);
            w.commands.clear();
            own.mainWindow->controls.controls.at(List).list.events->RowsDragged(each.before);
            EXPECT_EQ(w.ListTexts(), each.expected);
            const bool moved = w.ListTexts() != "abcde";
            EXPECT_EQ(w.commands, moved ? Ints{RowsMoved} : Ints{}) << each.expected;
        };
        dragging.Run();
    }
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
        {"cancelled", {{"", 0}}, {}, "", 1, 0},
        {"replaced", {{dir / "old", 0}}, {LMessageAnswer::Yes}, dir / "old.tdf", 1, 1},
        {"asked again", {{dir / "old.tdf", 0}, {dir / "b", 0}}, {LMessageAnswer::No}, dir / "b.tdf", 2, 1},
    };
    Run({[](TestWindow&) {}}, [&](MemoryMainWindow&) {
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

TEST_F(Gui, TheEntryBoxAnswersWhatWasTyped) {
    Run({[](TestWindow&) {}}, [this](MemoryMainWindow&) {
        toolkit.dialogScripts = {[](MemoryDialog& box) {
                                     EXPECT_EQ(box.caption, "Edit");
                                     EXPECT_EQ(box.controls.GetText(101), "Sine 1 Frequency");
                                     EXPECT_EQ(box.controls.GetText(102), "440.0 Hz");
                                     EXPECT_EQ(box.controls.focus, 102);
                                     box.Type(102, "441");
                                     box.Press(LCommandOk);
                                 },
                                 [](MemoryDialog& box) {
                                     box.Type(102, "442");
                                     box.Press(LCommandCancel);
                                 }};
        LNumericEdit taken("Edit", "Sine 1 Frequency", "440.0 Hz"), refused("", "", "440.0 Hz");
        EXPECT_TRUE(taken.Open(window));
        EXPECT_EQ(taken.GetText(), "441");
        EXPECT_FALSE(refused.Open(window));
        EXPECT_EQ(refused.GetText(), "440.0 Hz");
    });
}

TEST(DialogLayout, ControlsFollowTheWindowByTheirGrowth) {
    struct {
        unsigned growth;
        LRect expected;
    } const cases[] = {{GrowNone, {1, 2, 3, 4}},
                       {MoveRight, {11, 2, 3, 4}},
                       {MoveDown, {1, 102, 3, 4}},
                       {Widen | Heighten, {1, 2, 13, 104}},
                       {MoveDown | Widen, {1, 102, 13, 4}}};
    for (const auto& each : cases)
        EXPECT_EQ(PlaceControl({1, LControlKind::Button, "", {1, 2, 3, 4}, each.growth}, 10, 100),
                  each.expected);
}

/// A job of four steps.
struct Job {
    LProcessResult ending = LProcessResult::Completed;
    int steps = 0;
};

LProcessResult Process(LProgressDialog& dialog, Job& job) {
    dialog.SetText(ProgressStatus, "Working");
    for (; job.steps < 4; ++job.steps) {
        if (dialog.IsToStop())
            return LProcessResult::Stopped;
        dialog.PBSetProgress(ProgressBar, (job.steps + 1) * 0.2999);
    }
    return job.ending;
}

TEST_F(Gui, AJobRunsUnderItsProgressDialogUntilItIsStopped) {
    using User = std::function<void(MemoryDialog&)>;
    struct {
        const char* name;
        User stop;
        LProcessResult ending;
        bool completed;
        int steps;
        int percent; ///< that the bar last showed
    } const cases[] = {
        {"to its end", {}, LProcessResult::Completed, true, 4, 89},
        {"failed", {}, LProcessResult::Failed, false, 4, 89},
        {"Cancel", [](MemoryDialog& d) { d.Press(LCommandCancel); }, LProcessResult::Completed, false, 2, 59},
        {"closed", [](MemoryDialog& d) { d.CloseWindow(); }, LProcessResult::Completed, false, 2, 59},
    };
    Run({[](TestWindow&) {}}, [&](MemoryMainWindow&) {
        for (const auto& each : cases) {
            int asked = 0, percent = 0;
            MemoryDialog* dialog = nullptr;
            toolkit.onDialog = [&dialog](MemoryDialog& opened) { dialog = &opened; };
            toolkit.whileDispatched = [&] {
                EXPECT_TRUE(dialog->shown);
                EXPECT_FALSE(dialog->ended);
                if (++asked == 3 && each.stop)
                    each.stop(*dialog);
                percent = dialog->controls.GetValue(ProgressBar);
            };
            Job job{each.ending};
            EXPECT_EQ(ProcessDialogRun(window, "Saving", job), each.completed) << each.name;
            EXPECT_EQ(job.steps, each.steps) << each.name;
            EXPECT_EQ(percent, each.percent) << each.name;
        }
        toolkit.whileDispatched = {};
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
