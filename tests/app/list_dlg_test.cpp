#include "app/edited_list.h"
#include "app/list_dlg_layout.h"
#include "support/app_window.h"
#include "support/full_disk.h"
#include "sys/settings.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

enum : int { NewList = 1113, EditValue = 2103 };

constexpr const char* AskToSave = "Tone List|Tone list modified. Do you want to save it?";
constexpr const char* Infinite =
    "|Cannot add tones of infinite duration to list. Please check the selected tone "
    "is not to be played continuously or repeatly.";

Texts RowsOf(const MemoryDialog& editor) {
    Texts rows;
    for (const auto& row : editor.controls.controls.at(ListRows).list.rows)
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
    /// What is typed into the box that asks for a silence.
    void TypeSilence(const std::string& text) {
        dialogs.emplace_back([text](MemoryDialog& box) {
            box.Type(102, text);
            box.Press(LCommandOk);
        });
    }
    void Select(const Ints& rows) { editor->controls.controls.at(ListRows).list.Select(rows); }
    static void RemoveTemporary() {
        if (const std::string list = GetEditedList(); list.starts_with("/var/tmp/"))
            std::filesystem::remove(list);
    }
    std::string WriteList(const std::string& name, const std::string& lines) {
        WriteBytes(folder / name, lines);
        return folder / name;
    }

    MemoryDialog* editor = nullptr;
};

TEST_F(ListEditor, AListIsBuiltSavedAndOpenedAgain) {
    const std::string a = WriteTone("a.tdf", Tone440(true)), b = WriteTone("b.tdf", Tone440(true));
    const std::string path = folder / "new.tdl";
    files = {{a}, {b}, {folder / "new"}};
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_EQ(dialog.caption, "Tone List");
        EXPECT_EQ(RowsOf(dialog), Texts{});
        for (const int button : {ListAddTone, ListAddSilence, ListAddTone})
            dialog.Press(button);
        EXPECT_THAT(RowsOf(dialog), ElementsAre(a, "500ms silence.", b));
        EXPECT_EQ(dialog.controls.GetText(ListTotal), "Total: 00:02.5");
        dialog.Press(ListSave);
        EXPECT_EQ(ReadBytes(path), b + "\n500ms silence.\n" + a + "\n") << "from the last row to the first";
        dialog.Press(LCommandOk);
    });
    TypeSilence("500");
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_THAT(RowsOf(dialog), ElementsAre(a, "500ms silence.", b));
        Select({0});
        dialog.Press(ListMoveDown);
        dialog.Press(ListSave);
        EXPECT_EQ(ReadBytes(path), b + "\n" + a + "\n500ms silence.\n") << "without another question";
        dialog.Press(LCommandOk);
    });
    Run([&](MemoryMainWindow& window) {
        window.Choose(NewList);
        EXPECT_THAT(Rows(), ElementsAre(b + "=", "500ms silence.=", path + "="));
        EXPECT_TRUE(window.menu.items.at(1116).enabled);
        Send({EditValue});
        EXPECT_THAT(Rows(), ElementsAre(b + "=", a + "=", path + "="));
        EXPECT_EQ(toolkit->boxes, Texts{});
        EXPECT_EQ(toolkit->choosers.at(0).title + toolkit->choosers.at(2).title,
                  "Select fileSave tone list as");
    });
    EXPECT_EQ(GetEditedList(), path);
    for (const char* key : {"read folder", "savefolder"})
        EXPECT_EQ(LUserSettingGetText("tonelist", key), a.substr(0, a.rfind('/')));
    Run([&](MemoryMainWindow&) { EXPECT_EQ(Rows().size(), 3U) << "the last tone was the list"; });
}

TEST_F(ListEditor, WhatCanNotBeAddedIsSaidAndLeftOut) {
    SonvireData looping = Tone440(true);
    looping.repeat = 1;
    const std::string noNumber = "|Duration should be specified as a numeric value.";
    WriteBytes(folder / "garbage.tdf", "no tone");
    WriteBytes(folder / "two\nlines.wav", "");
    struct {
        std::string file, silence; ///< one of both
        Texts rows;
        std::string box;
    } const cases[] = {
        {WriteTone("endless.tdf", Tone440()), "", {}, Infinite},
        {WriteTone("looping.tdf", looping), "", {}, Infinite},
        {folder / "garbage.tdf",
         "",
         {},
         "Error|The file \"" + (folder / "garbage.tdf") + "\" can't be read: it is no tone file."},
        {folder / "gone.tdf",
         "",
         {},
         "Error|The file \"" + (folder / "gone.tdf") + "\" can't be read: No such file or directory."},
        {folder / "gone.tdl",
         "",
         {},
         "Error|The file \"" + (folder / "gone.tdl") + "\" can't be read: No such file or directory."},
        {folder / "two\nlines.wav",
         "",
         {},
         "Error|The file \"" + (folder / "two\nlines.wav") +
             "\" can't be added: there is a line break in its name."},
        {folder / "any.wav", "", {folder / "any.wav"}, ""},
        {"", "12a", {}, noNumber},
        {"", "-5", {}, noNumber},
        {"", "1.5", {"1.5ms silence."}, ""},
        {"", "", {"ms silence."}, ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.file + each.silence);
        dialogs.clear();
        OnEditor([&](MemoryDialog& dialog) {
            dialog.Press(each.file.empty() ? ListAddSilence : ListAddTone);
            EXPECT_EQ(RowsOf(dialog), each.rows);
            EXPECT_EQ(toolkit->boxes, each.box.empty() ? Texts{} : Texts{each.box});
        });
        if (each.file.empty())
            TypeSilence(each.silence);
        else
            files = {{each.file}};
        Run([&](MemoryMainWindow&) { Send({NewList}); });
    }
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
            Select(each.selected);
            dialog.Press(each.button);
            EXPECT_EQ(digits(RowsOf(dialog)), each.rows);
            dialog.Press(LCommandOk);
            EXPECT_TRUE(dialog.ok);
        });
        Run([&](MemoryMainWindow&) { EXPECT_EQ(toolkit->boxes, each.asks ? Texts{AskToSave} : Texts{}); },
            {path});
        RemoveTemporary();
    }
    OnEditor([&](MemoryDialog& dialog) {
        MemoryList& list = dialog.controls.controls.at(ListRows).list;
        EXPECT_TRUE(list.draggable);
        list.Select({2});
        list.events->RowsDragged(0);
        EXPECT_EQ(digits(RowsOf(dialog)), "312");
        list.events->FilesDropped(
            {WriteTone("4.tdf", Tone440()), WriteList("5.tdl", "6ms silence.\n5ms silence.\n"), path}, 1);
        EXPECT_EQ(digits(RowsOf(dialog)), "35612312") << "lists as their entries, without the endless tone";
        EXPECT_EQ(dialog.controls.GetText(ListTotal), "Total: 00:00.0");
    });
    Run([&](MemoryMainWindow&) { EXPECT_EQ(toolkit->boxes, Texts{Infinite}); }, {path});
}

TEST_F(ListEditor, ClosingNeverLosesRows) {
    const std::string before = "2ms silence.\n1ms silence.\n", after = "1ms silence.\n2ms silence.\n";
    const std::string path = WriteList("list.tdl", "");
    struct {
        LMessageAnswer answer;
        const char* chosen; ///< where the list has no name yet
        bool full;
        std::string list, edited;
        bool closed;
    } const cases[] = {
        {LMessageAnswer::Yes, nullptr, false, after, path, true},
        {LMessageAnswer::No, nullptr, false, before, "/var/tmp/0", true},
        {LMessageAnswer::Yes, "", false, before, "/var/tmp/0", true},
        {LMessageAnswer::Yes, "b.tdl", false, before, folder / "b.tdl", true},
        {LMessageAnswer::Yes, nullptr, true, before, path, false},
    };
    for (const auto& each : cases) {
        WriteBytes(path, before);
        dialogs.clear();
        const bool named = each.chosen == nullptr;
        if (!named)
            files = {{*each.chosen == 0 ? "" : folder / each.chosen}};
        OnEditor([&](MemoryDialog& dialog) {
            if (!named) { // as a new list into which the other one is dropped
                dialog.controls.controls.at(ListRows).list.events->FilesDropped({path}, 0);
            }
            Select({0});
            dialog.Press(ListMoveDown);
            toolkit->answers = {each.answer};
            std::optional<FullDisk> full;
            if (each.full)
                full.emplace();
            dialog.Press(LCommandOk);
            EXPECT_EQ(dialog.ended, each.closed);
        });
        std::string edited;
        Run(
            [&](MemoryMainWindow&) {
                if (!named)
                    Send({NewList});
                edited = GetEditedList();
                EXPECT_THAT(edited, StartsWith(each.edited));
                EXPECT_EQ(toolkit->boxes.size(), each.full ? 3U : 1U)
                    << "the list and the temporary one are told";
                if (each.closed) {
                    EXPECT_EQ(ReadBytes(edited), after);
                    EXPECT_EQ(Rows().back(), (edited[1] == 'v' ? "Unsaved list" : edited) + "=");
                }
                if (edited[1] != 'v')
                    return;
                struct stat info {};
                stat(edited.c_str(), &info);
                EXPECT_EQ(info.st_mode & 0777, 0666U);
                toolkit->dialogScripts.emplace_back([&](MemoryDialog& dialog) {
                    EXPECT_THAT(RowsOf(dialog), ElementsAre("2ms silence.", "1ms silence."))
                        << "edited further";
                });
                Send({EditValue});
            },
            named ? Texts{path} : Texts{});
        EXPECT_EQ(ReadBytes(path), each.list);
        RemoveTemporary();
    }
}

TEST_F(ListEditor, CancelLeavesNothingBehind) {
    std::string temporary;
    OnEditor([&](MemoryDialog& dialog) {
        temporary = GetEditedList();
        EXPECT_TRUE(std::filesystem::exists(temporary));
        dialog.Press(ListAddSilence);
        dialog.Press(LCommandCancel);
    });
    TypeSilence("1");
    Run([&](MemoryMainWindow&) {
        Send({NewList});
        EXPECT_THAT(Rows(), ElementsAre("Sine 1 Frequency=1000.00Hz"));
        EXPECT_EQ(toolkit->boxes, Texts{});
    });
    EXPECT_FALSE(std::filesystem::exists(temporary));
}

TEST_F(ListEditor, ListsWithinListsAreOpenedInPlace) {
    const std::string tone = WriteTone("tone.tdf", Tone440(true));
    const std::string inner = WriteList("inner.tdl", "tone.tdf\n2ms silence.\n");
    SonvireData listTone;
    listTone.SetDuration(1000);
    listTone.waveform = ToneFromList;
    inner.copy(listTone.listPath, sizeof listTone.listPath - 1);
    const std::string outer = WriteList("outer.tdl", "3ms silence.\n" + inner + "\n1ms silence.\n");
    const std::string itself = WriteList("itself.tdl", "");
    WriteBytes(itself, itself + "\n" + itself + "\n9ms silence.\n");
    files = {{WriteTone("list.tdf", listTone)}};
    OnEditor([&](MemoryDialog& dialog) {
        EXPECT_THAT(RowsOf(dialog), ElementsAre("1ms silence.", "2ms silence.", tone, "3ms silence."))
            << "what lies beside its list is given with the folder";
        dialog.Press(ListAddTone);
        EXPECT_EQ(RowsOf(dialog).size(), 6U);
        dialog.Press(LCommandCancel);
        dialog.End(false);
    });
    Run([&](MemoryMainWindow&) {}, {outer});
    OnEditor([&](MemoryDialog& dialog) { EXPECT_THAT(RowsOf(dialog), ElementsAre("9ms silence.")); });
    Run([&](MemoryMainWindow&) { EXPECT_THAT(toolkit->boxes, ElementsAre(HasSubstr("includes itself"))); },
        {itself});
}

} // namespace
