#include "app/list_editor/list_dlg_layout.h"
#include "support/app_window.h"
#include "support/full_disk.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* AskToSave = "Tone List|Tone list modified. Do you want to save it?";
constexpr const char* Infinite =
    "|Cannot add tones of infinite duration to list. Please check the selected tone "
    "is not to be played continuously or repeatly.";

Texts RowsOf(const MemoryDialog& editor) {
    Texts rows;
    for (const auto& row : editor.controls[ListRows].list->rows)
        rows.push_back(row.at(0));
    return rows;
}

/// The tone list editor, opened on lists of one's choice from the main window.
class ListEditor : public App {
protected:
    /// What the user does in the editor.
    void OnEditor(std::function<void(MemoryDialog&)> use) {
        dialogs.emplace_back([this, use = std::move(use)](MemoryDialog& dialog) {
            editor = &dialog;
            use(dialog);
        });
    }
    MemoryList& EditedRows() { return *editor->controls[ListRows].list; }
    static void RemoveTemporary() {
        if (const std::string list = EditedList(); list.starts_with("/var/tmp/"))
            std::filesystem::remove(list);
    }
    MemoryDialog* editor = nullptr;
};

TEST_F(ListEditor, AListIsBuiltSavedAndOpenedAgain) {
    const std::string a = WriteTone("a.tdf", Tone440(true)), b = WriteTone("b.tdf", Tone440(true));
    const std::string path = folder / "new.tdl";
    files = {{a}, {b}, {folder / "new"}};
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_EQ(RowsOf(dialog), Texts{});
        EXPECT_EQ(dialog.controls.focus, ListRows);
        for (const int button : {ListAddTone, ListAddSilence, ListAddTone})
            dialog.Press(button);
        EXPECT_THAT(RowsOf(dialog), ElementsAre(a, "500ms silence.", b));
        EXPECT_EQ(EditedRows().selection, Ints{2}) << "what was added stands ready to be moved";
        EXPECT_EQ(dialog.controls.GetText(ListTotal), "Total: 2.5 s");
        EXPECT_EQ(dialog.controls[ListTotal].toolTip, "");
        dialog.Press(ListSave);
        EXPECT_EQ(ReadBytes(path), b + "\n500ms silence.\n" + a + "\n") << "from the last row to the first";
        dialog.Press(LCommandOk);
    });
    dialogs.push_back(Typed("500"));
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_THAT(RowsOf(dialog), ElementsAre(a, "500ms silence.", b));
        EditedRows().Select({0});
        dialog.Press(ListMoveDown);
        dialog.Press(ListSave);
        EXPECT_EQ(ReadBytes(path), b + "\n" + a + "\n500ms silence.\n") << "without another question";
        dialog.Press(LCommandOk);
    });
    Run([&](MemoryMainWindow& window) {
        window.Choose(CommandNewList);
        EXPECT_THAT(Rows(), ElementsAre(b + "=", "500ms silence.=", path + "="));
        EXPECT_TRUE((*window.menu)[CommandSaveAsWav].enabled);
        Send({CommandEditValue});
        EXPECT_THAT(Rows(), ElementsAre(b + "=", a + "=", path + "="));
        EXPECT_EQ(toolkit->boxes, Texts{});
    });
    EXPECT_EQ(EditedList(), path);
    for (const TextSetting& kept : {Setting::EntryReadFolder, Setting::ListSaveFolder})
        EXPECT_EQ(Stored(kept) + "/", folder / "");
    Run([&](MemoryMainWindow&) { EXPECT_EQ(Rows().size(), 3U) << "the last tone was the list"; });
}

TEST_F(ListEditor, WhatCanNotBeAddedIsSaidAndLeftOut) {
    SonvireData looping = Tone440(true);
    looping.repeat = 1;
    const std::string garbage = folder / "garbage.tdf", broken = folder / "two\nlines.wav";
    const auto error = [](const std::string& path, const std::string& reason) {
        return "Error|The file \"" + path + "\" can't be " + reason;
    };
    const std::string gone = "read: No such file or directory.";
    const std::string noTone = "read: it is not a whole tone: a tone data file has 797 bytes.";
    WriteBytes(garbage, "no tone");
    WriteBytes(broken, "");
    const std::tuple<int, std::string, std::string, std::string> cases[] = {
        {ListAddTone, WriteTone("endless.tdf", Tone440()), "", Infinite},
        {ListAddTone, WriteTone("looping.tdf", looping), "", Infinite},
        {ListAddTone, garbage, "", error(garbage, noTone)},
        {ListAddTone, folder / "gone.tdf", "", error(folder / "gone.tdf", gone)},
        {ListAddTone, folder / "gone.tdl", "", error(folder / "gone.tdl", gone)},
        {ListAddTone, broken, "", error(broken, "added: there is a line break in its name.")},
        {ListAddTone, folder / "any.wav", folder / "any.wav", ""},
        {ListAddSilence, "12a", "", ""}, // as all that follow that have no row: it can't be typed
        {ListAddSilence, "-5", "", ""},
        {ListAddSilence, "-1 s", "", ""},
        {ListAddSilence, "1.2.3", "", ""},
        {ListAddSilence, "9999 h", "", ""},
        {ListAddSilence, "", "", ""},
        {ListAddSilence, "1.5", "1.5ms silence.", ""},
        {ListAddSilence, "0.29 s", "290ms silence.", ""},
        {ListAddSilence, "1:30", "90000ms silence.", ""},
    };
    OnEditor([&](MemoryDialog& dialog) {
        Texts rows;
        for (const auto& [button, given, row, box] : cases) {
            toolkit->boxes.clear();
            toolkit->chosenFiles = {{given}};
            toolkit->dialogScripts = {Typed(given)};
            dialog.Press(button);
            if (!row.empty())
                rows.push_back(row);
            EXPECT_EQ(RowsOf(dialog), rows) << given;
            EXPECT_EQ(Boxes(), box) << given;
        }
        EXPECT_EQ(EditedRows().rows[0][1], "can't be read: No such file or directory");
        EXPECT_EQ(EditedRows().looks[0].mark, LRowMark::Problem);
        EXPECT_EQ(EditedRows().looks[0].toolTip,
                  folder / "any.wav" + "\ncan't be read: No such file or directory");
        EXPECT_EQ(EditedRows().looks[2].toolTip, "Silence\nLength: 0.29 s");
        EXPECT_EQ(dialog.controls.GetText(ListTotal), "Total: 01:30.29 or more");
        EXPECT_EQ(dialog.controls[ListTotal].toolTip, "Entries that are endless or can't be read: 1");
    });
    Run([&](MemoryMainWindow&) { Send({CommandNewList}); });
}

TEST_F(ListEditor, RowsAreMovedAndRemoved) {
    const std::string path = WriteList("list.tdl", "3ms silence.\n2ms silence.\n1ms silence.\n");
    const auto digits = [](const Texts& rows) {
        std::string all;
        for (const std::string& row : rows)
            all += row[0];
        return all;
    };
    struct {
        int button;
        Ints selected;
        const char* rows;
        bool asks;
    } const cases[] = {
        {ListMoveUp, {1}, "213", true},    {ListMoveUp, {0}, "123", true},
        {ListMoveDown, {0}, "213", true},  {ListMoveDown, {2}, "123", true},
        {ListMoveUp, {}, "123", false},    {ListMoveDown, {0, 1}, "123", false},
        {ListRemove, {0, 2}, "2", true},   {ListRemove, {}, "123", true},
        {ListRemove, {0, 1, 2}, "", true}, {ListAddTone, {0}, "123", false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::to_string(each.button) + " with " + std::to_string(each.selected.size()));
        dialogs.clear();
        OnEditor([&](MemoryDialog& dialog) {
            EditedRows().Select(each.selected);
            for (const int move : {ListMoveUp, ListMoveDown})
                EXPECT_EQ(dialog.controls[move].enabled, each.selected.size() == 1);
            dialog.Press(each.button);
            EXPECT_EQ(digits(RowsOf(dialog)), each.rows);
            dialog.Press(LCommandOk);
            EXPECT_TRUE(dialog.ok);
        });
        Run([&](MemoryMainWindow&) { EXPECT_EQ(Boxes(), each.asks ? AskToSave : ""); }, {path});
        RemoveTemporary();
    }
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_TRUE(EditedRows().draggable);
        EditedRows().Select({2});
        EditedRows().events.RowsDragged(0);
        EXPECT_EQ(digits(RowsOf(dialog)), "312");
        EditedRows().events.FilesDropped(
            {WriteTone("4.tdf", Tone440()), WriteList("5.tdl", "6ms silence.\n5ms silence.\n"), path}, 1);
        EXPECT_EQ(digits(RowsOf(dialog)), "35612312") << "lists as their entries, without the endless tone";
        EXPECT_EQ(dialog.controls.GetText(ListTotal), "Total: 0.02 s");
        EXPECT_EQ(toolkit->boxes, Texts{Infinite});
    });
    Run([](MemoryMainWindow&) {}, {path});
}

TEST_F(ListEditor, EveryStepIsTakenBackAndTakenAgain) {
    const std::string path = WriteList("list.tdl", "3ms silence.\n2ms silence.\n1ms silence.\n");
    const std::string draft = GetUserDataFolder() + "/edited-list.tdl";
    const std::string endless = WriteTone("endless.tdf", Tone440());
    const std::string inner = WriteList("inner.tdl", endless + "\n8ms silence.\n");
    OnEditor([&](MemoryDialog& dialog) {
        MemoryList& list = EditedRows();
        const auto type = [&](const std::string& text) { toolkit->dialogScripts = {Typed(text)}; };
        const auto shown = [&] {
            std::string all;
            for (const std::string& row : RowsOf(dialog))
                all += row[0];
            return all;
        };
        const std::tuple<Ints, std::function<void()>, std::string> steps[] = {
            {{0, 1}, [&] { dialog.Key(LKeyAlt | LKeyDown); }, "312"},
            {{2}, [&] { list.events.RowsDragged(0); }, "231"},
            {{1}, [&] { type("0.7 s"), dialog.Key(LKeyReturn); }, "271"},
            {{2}, [&] { type("4"), list.events.DoubleClicked(); }, "274"},
            {{0, 2}, [&] { dialog.Key(LKeyDelete); }, "7"},
            {{0}, [&] { type("5"), dialog.Press(ListAddSilence); }, "75"},
            {{0}, [&] { list.events.FilesDropped({inner}, 1); }, "78/5"},
            {{3}, [&] { dialog.Key(LKeyAlt | LKeyUp), dialog.Key(LKeyAlt | LKeyUp); }, "758/"},
            {{3}, [&] { type("9"), list.events.DoubleClicked(); }, "758/"}, // no silence
        };
        for (const auto& [selected, act, expected] : steps) {
            list.Select(selected);
            act();
            EXPECT_EQ(shown(), expected);
        }
        EXPECT_EQ(list.looks[3].mark, LRowMark::Endless);
        EXPECT_EQ(dialog.document.name, "list.tdl");
        EXPECT_TRUE(dialog.document.changed);
        for (const char* expected : {"78/5", "75", "7", "274", "271", "231", "312", "123", "123"}) {
            EXPECT_TRUE(dialog.Key(LKeyControl, 'z'));
            EXPECT_EQ(shown(), expected);
        }
        EXPECT_FALSE(dialog.document.changed);
        EXPECT_FALSE(std::filesystem::exists(draft)) << "as in the file";
        for (const char* expected : {"312", "231", "271", "274", "7"}) {
            EXPECT_EQ(ReadBytes(draft).empty(), shown() == "123");
            dialog.Key(LKeyControl | LKeyShift, 'z');
            EXPECT_EQ(shown(), expected);
        }
        toolkit->popupChoices = {ListUndo};
        list.events.RightClicked();
        EXPECT_EQ(list.selection, (Ints{0, 2})) << "what comes back";
        EXPECT_EQ(toolkit->popup[ListRedo].key, "Ctrl+Shift+Z");
        EXPECT_TRUE(toolkit->popup[ListEditSilence].enabled) << "the row that was left is selected";
        EXPECT_TRUE(dialog.Key(LKeyControl, 's'));
        dialog.Key(LKeyControl, 'z');
        EXPECT_TRUE(dialog.document.changed) << "others than in the file";
        dialog.Key(LKeyControl | LKeyShift, 'z');
        dialog.Press(LCommandOk);
        EXPECT_TRUE(dialog.ended);
        EXPECT_EQ(toolkit->boxes, Texts{}) << "nothing to save";
    });
    Run([](MemoryMainWindow&) {}, {path});
}

TEST_F(ListEditor, ClosingNeverLosesRows) {
    const std::string before = "2ms silence.\n1ms silence.\n", after = "1ms silence.\n2ms silence.\n";
    const std::string path = WriteList("list.tdl", "");
    struct {
        bool named; ///< or a new list into which the other one is dropped
        LMessageAnswer answer;
        std::string chosen, list, edited, row;
    } const cases[] = {
        {true, LMessageAnswer::Yes, "", after, path, path},
        {true, LMessageAnswer::No, "", before, "/var/tmp/0", "Unsaved list"},
        {false, LMessageAnswer::Yes, "", before, "/var/tmp/0", "Unsaved list"},
        {false, LMessageAnswer::Yes, folder / "b.tdl", before, folder / "b.tdl", folder / "b.tdl"},
    };
    for (const auto& each : cases) {
        WriteBytes(path, before);
        dialogs.clear();
        if (!each.named)
            files = {{each.chosen}};
        OnEditor([&](MemoryDialog& dialog) {
            if (!each.named)
                EditedRows().events.FilesDropped({path}, 0);
            EditedRows().Select({0});
            dialog.Press(ListMoveDown);
            toolkit->answers = {each.answer};
            dialog.Press(LCommandOk);
        });
        OnEditor([&](MemoryDialog&) {
            EXPECT_THAT(RowsOf(*editor), ElementsAre("2ms silence.", "1ms silence.")) << "edited further";
        });
        Run(
            [&](MemoryMainWindow&) {
                if (!each.named)
                    Send({CommandNewList});
                EXPECT_THAT(EditedList(), StartsWith(each.edited));
                EXPECT_EQ(Boxes(), AskToSave);
                EXPECT_EQ(ReadBytes(EditedList()), after);
                EXPECT_EQ(Rows().back(), each.row + "=");
                const auto rights = std::filesystem::status(EditedList()).permissions();
                EXPECT_TRUE(each.row != "Unsaved list" || rights == std::filesystem::perms{0666});
                Send({CommandEditValue});
            },
            each.named ? Texts{path} : Texts{});
        EXPECT_EQ(ReadBytes(path), each.list);
        RemoveTemporary();
    }
}

TEST_F(ListEditor, CancelAsksBeforeItDropsRows) {
    const std::string before = "2ms silence.\n1ms silence.\n", after = "1ms silence.\n2ms silence.\n";
    const std::string path = WriteList("list.tdl", before);
    using enum LMessageAnswer;
    for (const LMessageAnswer answer : {Cancel, No, Yes}) {
        OnEditor([&](MemoryDialog& dialog) {
            EditedRows().Select({0});
            dialog.Press(ListMoveDown);
            toolkit->answers = {answer};
            dialog.Press(LCommandCancel);
            EXPECT_EQ(dialog.ended, answer != Cancel);
            EXPECT_EQ(toolkit->boxes.size(), 1U);
            EXPECT_EQ(ReadBytes(path), answer == Yes ? after : before);
            WriteBytes(path, "another program's");
            dialog.Press(ListMoveUp);
            toolkit->answers = {answer};
            dialog.Press(ListSave);
            EXPECT_THAT(toolkit->boxes.back(), HasSubstr("has been changed by another program"));
            EXPECT_EQ(ReadBytes(path), answer == Yes ? before : "another program's");
            WriteBytes(path, before);
            dialog.End(false);
        });
        Run([&](MemoryMainWindow&) { EXPECT_EQ(Rows().size(), 1U) << "the tone before"; }, {path});
    }
}

TEST_F(ListEditor, AnUnsavedListIsNotLostToAnotherTone) {
    WriteTone("a.tdf", Tone440(true));
    const std::string saved = folder / "saved.tdl";
    dialogs.push_back([](MemoryDialog& dialog) {
        dialog.Press(ListAddSilence);
        dialog.Press(LCommandOk);
    });
    dialogs.push_back(Typed("5"));
    std::string list;
    Run([&](MemoryMainWindow&) {
        Send({CommandNewList});
        list = EditedList();
        for (const int command : {WaveformCommand(ToneSquare), CommandLoadTone + 0, CommandNewList + 0})
            Send({command});
        dialog->EvDropFiles({folder / "a.tdf"});
        EXPECT_EQ(toolkit->boxes.size(), 5U) << "cancelled, but for the one of the editor";
        EXPECT_EQ(Rows(), Texts{"Unsaved list="});
        using enum LMessageAnswer;
        toolkit->answers = {No, Yes};
        toolkit->dialogScripts = {PressOk};
        Send({WaveformCommand(ToneSquare)});
        EXPECT_EQ(Rows().back(), "Square Duration=5ms");
        Send({CommandLoadList});
        EXPECT_EQ(Rows(), Texts{"Unsaved list="});
        EXPECT_TRUE(toolkit->choosers.empty()) << "offered instead";
        toolkit->answers = {Yes};
        toolkit->chosenFiles = {{saved}};
        Send({WaveformCommand(ToneSine)});
        EXPECT_EQ(ReadBytes(saved), "5ms silence.\n");
        EXPECT_EQ(Rows().back(), "Sine Duration=5ms");
        EXPECT_TRUE(std::filesystem::exists(list)) << "it can be gone back to";
        EXPECT_EQ(EditedList(), saved);
    });
    EXPECT_FALSE(std::filesystem::exists(list)) << "nothing names it any more";
}

TEST_F(ListEditor, RowsOutliveTheProgramUntilTheyAreSavedOrDropped) {
    const std::string path = WriteList("list.tdl", "2ms silence.\n1ms silence.\n");
    const std::string draft = GetUserDataFolder() + "/edited-list.tdl";
    const auto moveRow = [](MemoryDialog& dialog, MemoryList& rows) {
        rows.Select({0});
        dialog.Press(ListMoveDown);
    };
    std::string kept;
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_FALSE(std::filesystem::exists(draft));
        moveRow(dialog, EditedRows());
        kept = ReadBytes(draft);
        EXPECT_EQ(kept, "1ms silence.\n2ms silence.\n");
        dialog.Press(ListSave);
        EXPECT_FALSE(std::filesystem::exists(draft)) << "they are in a file of the user's";
        moveRow(dialog, EditedRows());
        dialog.Press(LCommandCancel);
    });
    Run([&](MemoryMainWindow&) { EXPECT_FALSE(std::filesystem::exists(draft)); }, {path});

    OnEditor([&](MemoryDialog& dialog) {
        moveRow(dialog, EditedRows());
        toolkit->sessionEnding = true;
        dialog.Press(LCommandCancel);
    });
    Run([](MemoryMainWindow&) {}, {path});
    for (const LMessageAnswer answer : {LMessageAnswer::Yes, LMessageAnswer::Cancel, LMessageAnswer::No}) {
        if (answer == LMessageAnswer::Yes)
            OnEditor([&](MemoryDialog& dialog) {
                EXPECT_THAT(RowsOf(dialog), ElementsAre("1ms silence.", "2ms silence."));
                kept = ReadBytes(draft); // as if it were killed here
                toolkit->answers = {LMessageAnswer::Cancel};
                dialog.Press(LCommandCancel);
                EXPECT_FALSE(dialog.ended) << "not without a question";
                dialog.Press(LCommandOk);
            });
        Run(
            [&](MemoryMainWindow&) {
                EXPECT_THAT(Boxes(), StartsWith("Tone List|Sonvire ended while a tone list was edited."));
            },
            {}, [&](MainDialog&) { toolkit->answers = {answer}; });
        Run([&](MemoryMainWindow&) {
            EXPECT_EQ(Boxes().empty(), answer != LMessageAnswer::Cancel) << "asked once, or later";
        });
        WriteBytes(draft, kept);
        RemoveTemporary();
    }
}

TEST_F(ListEditor, AFullDiskKeepsTheEditorOpen) {
    const std::string path = WriteList("list.tdl", "2ms silence.\n1ms silence.\n");
    OnEditor([&](MemoryDialog& dialog) {
        EditedRows().Select({0});
        dialog.Press(ListMoveDown);
        toolkit->answers = {LMessageAnswer::Yes};
        const FullDisk full;
        dialog.Press(LCommandOk);
        EXPECT_FALSE(dialog.ended);
        EXPECT_EQ(toolkit->boxes.size(), 3U) << "the list and the temporary one are told";
    });
    Run([](MemoryMainWindow&) {}, {path});
    EXPECT_EQ(ReadBytes(path), "2ms silence.\n1ms silence.\n");
}

TEST_F(ListEditor, ATemporaryFileStaysAsLongAsTheListIsInIt) {
    std::string first, second, last;
    OnEditor([&](MemoryDialog& dialog) {
        first = EditedList();
        dialog.Press(LCommandOk);
    });
    OnEditor([](MemoryDialog& dialog) { dialog.Press(LCommandCancel); });
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_TRUE(std::filesystem::exists(first)) << "it was not made by the editor that was cancelled";
        toolkit->dialogScripts.push_front(Typed("1"));
        dialog.Press(ListAddSilence);
        dialog.Press(LCommandOk); // without saving
        second = EditedList();
    });
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_TRUE(std::filesystem::exists(second));
        toolkit->chosenFiles = {{folder / "named.tdl"}};
        dialog.Press(ListSave);
        dialog.Press(LCommandOk);
    });
    OnEditor([&](MemoryDialog& dialog) {
        dialog.Press(ListSave);
        EXPECT_EQ(toolkit->choosers.size(), 2U) << "a new list has no name, whatever the last one had";
        last = EditedList();
        EXPECT_TRUE(std::filesystem::exists(last));
        dialog.Press(LCommandCancel);
    });
    Run([&](MemoryMainWindow& window) {
        Send({CommandNewList, CommandEditValue, CommandEditValue, CommandEditValue, CommandNewList});
        EXPECT_EQ(window.passing, "Saved named.tdl in " + GetFolder(folder / "named.tdl") + ": 0 s");
        EXPECT_EQ(Rows().back(), folder / "named.tdl" + "=") << "a cancelled list changes nothing";
        EXPECT_EQ(Boxes(), AskToSave);
    });
    for (const std::string& each : {first, second, last})
        EXPECT_FALSE(std::filesystem::exists(each)) << "once nothing leads back to it";
}

TEST_F(ListEditor, ListsWithinListsAreOpenedInPlace) {
    const std::string tone = WriteTone("tone.tdf", Tone440(true));
    const std::string inner = WriteList("INNER.TDL", "tone.tdf\n2ms silence.\n");
    const std::string mix = WriteList("mix.final", ReadBytes(inner));
    SonvireData listTone;
    listTone.SetDuration(1000);
    listTone.waveform = ToneFromList;
    mix.copy(listTone.listPath, sizeof listTone.listPath - 1);
    const std::string outer =
        WriteList("OUTER.Tdl", "3ms silence.\n" + inner + "\nbeside.wav\n1ms silence.\n");
    const std::string beside = WriteList("beside.wav", "");
    const std::string itself = WriteList("itself.tdl", "");
    WriteBytes(itself, itself + "\n" + itself + "\n9ms silence.\n");
    files = {{WriteTone("list.tdf", listTone)}};
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_THAT(RowsOf(dialog), ElementsAre("1ms silence.", beside, "2ms silence.", tone, "3ms silence."))
            << "what lies beside its list is given with the folder";
        dialog.Press(ListAddTone);
        EXPECT_EQ(RowsOf(dialog).size(), 7U);
        EditedRows().Select({2, 5, 6});
        dialog.Press(ListRemove);
        dialog.Press(ListSave);
        EXPECT_EQ(ReadBytes(outer), "3ms silence.\n" + tone + "\nbeside.wav\n1ms silence.\n")
            << "named as it was";
        dialog.Press(LCommandCancel);
        dialog.End(false);
    });
    Run([&](MemoryMainWindow&) {}, {outer});
    OnEditor([&](MemoryDialog& dialog) { EXPECT_THAT(RowsOf(dialog), ElementsAre("2ms silence.", tone)); });
    Run([&](MemoryMainWindow&) { Send({CommandEditValue}); }, {folder / "list.tdf"});
    OnEditor([&](MemoryDialog& dialog) { EXPECT_THAT(RowsOf(dialog), ElementsAre("9ms silence.")); });
    Run([&](MemoryMainWindow&) { EXPECT_THAT(toolkit->boxes, ElementsAre(HasSubstr("includes itself"))); },
        {itself});
}

} // namespace
