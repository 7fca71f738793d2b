#include "app/list_editor/list_dlg_layout.h"
#include "support/app_window.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;

/// What can be gone back from, and what the window says of the file that its tone is of.
class History : public App {
protected:
    std::string Title() {
        const LWindowDocument& shown = toolkit->mainWindow->document;
        return shown.name + (shown.changed ? "*" : "");
    }
    std::string Value() { return List().rows.at(0).at(1); }
    MemoryItem Menu(int command) { return (*toolkit->mainWindow->menu)[command]; }
    void Undo() { toolkit->mainWindow->Choose(CommandUndo); }
    void Redo() { toolkit->mainWindow->Choose(CommandRedo); }
};

TEST_F(History, EveryChangeOfTheToneIsUndoneAndDoneAgain) {
    const std::string list = WriteList("list.tdl", "500ms silence.\n");
    const std::string tone = WriteTone("tone.tdf", Tone440());
    struct {
        Ints commands;
        std::string reason;
    } const changes[] = {{{CommandStereo}, "channels"},
                         {{CommandIncrease, CommandIncrease, CommandIncrease}, "a repeated key is one step"},
                         {{CommandIncreaseLarge}, "another key is another"},
                         {{CommandEditValue}, "typed"},
                         {{CommandLoop}, "which makes it finite as well"},
                         {{CommandContinuous}, "which ends the loop"},
                         {{WaveformCommand(TonePinkNoise)}, "which takes modes away"},
                         {{CommandLoadTone}, "another document"},
                         {{CommandLoadList}, "a list"},
                         {{WaveformCommand(ToneSquare)}, "and away from it"}};
    dialogs = {Typed("A4"), PressOk};
    files = {{tone}, {list}};
    Run([&](MemoryMainWindow& window) {
        std::vector<std::pair<Texts, std::string>> states = {{Rows(), Title()}};
        EXPECT_FALSE(Menu(CommandUndo).enabled);
        for (const auto& change : changes) {
            Send(change.commands);
            states.emplace_back(Rows(), Title());
            EXPECT_TRUE(Menu(CommandUndo).enabled && !Menu(CommandRedo).enabled) << change.reason;
        }
        Send({CommandStop, CommandSave}); // changes nothing
        for (std::size_t i = std::size(changes); i > 0; --i, Undo())
            EXPECT_EQ(std::pair(Rows(), Title()), states[i]) << changes[i - 1].reason;
        EXPECT_EQ(Rows(), states[0].first);
        EXPECT_FALSE(Menu(CommandUndo).enabled);
        for (std::size_t i = 0; i < std::size(changes); ++i, Redo())
            EXPECT_EQ(Rows(), states[i].first) << i;
        Undo();
        Send({CommandStereo});
        EXPECT_FALSE(Menu(CommandRedo).enabled) << "what is done anew has taken its place";
        EXPECT_TRUE(window.visible);
    });
}

TEST_F(History, HoldsAHundredStepsAndPlayingFollows) {
    Run([&](MemoryMainWindow&) {
        Send({CommandPlay});
        EXPECT_TRUE(WaitForPlayback(1));
        for (int i = 0; i < 120; ++i)
            Send({i % 2 == 0 ? CommandIncreaseLarge : CommandDecreaseLarge});
        EXPECT_TRUE(WaitForPlayback(121));
        for (int i = 0; i < 99; ++i)
            Undo();
        EXPECT_TRUE(Menu(CommandUndo).enabled);
        Undo();
        EXPECT_FALSE(Menu(CommandUndo).enabled);
        EXPECT_TRUE(WaitForPlayback(221)) << "each is heard";
        EXPECT_EQ(Value(), "1000.00Hz");
    });
}

TEST_F(History, TheTitleTellsTheFileAndWhetherItHoldsTheTone) {
    SonvireData content = Tone440();
    content.durationMs = 1234; // between two frames
    const std::string tone = WriteTone("tone.tdf", content), copy = folder / "copy.tdf";
    const std::string list = WriteList("list.tdl", "500ms silence.\n");
    Run(
        [&](MemoryMainWindow& window) {
            EXPECT_EQ(Title() + " " + window.document.path, "tone.tdf " + tone);
            Send({CommandStereo});
            EXPECT_EQ(Title(), "tone.tdf*");
            Undo();
            EXPECT_EQ(Title(), "tone.tdf") << "it is as it was";
            Redo();
            toolkit->chosenFiles = {{copy}, {copy}};
            Send({CommandSave});
            EXPECT_EQ(Title(), "copy.tdf");
            EXPECT_EQ(window.passing, "Saved copy.tdf in " + GetFolder(copy) + ": endless, peak -12.04 dBFS");
            Undo();
            EXPECT_EQ(Title(), "copy.tdf*") << "still of that file";
            Redo();
            for (const int command : {CommandIncrease, CommandSave, CommandIncrease}) {
                toolkit->answers = {LMessageAnswer::Yes};
                toolkit->chosenFiles = {{copy}};
                Send({command});
            }
            Undo();
            EXPECT_EQ(Title(), "copy.tdf") << "a step does not join one before the save";
            Undo();
        },
        {tone});
    Run([&](MemoryMainWindow& window) {
        EXPECT_EQ(Title() + " " + window.document.path, "copy.tdf* " + copy) << "also at the next start";
        toolkit->chosenFiles = {{folder / "sound.wav"}};
        Send({CommandSpecifiedDuration, CommandSaveAsWav});
        EXPECT_EQ(window.passing, "Saved sound.wav in " + GetFolder(copy) + ": 1.234 s, peak -12.04 dBFS");
        toolkit->dialogScripts = {PressOk, PressOk};
        window.Drop({list});
        EXPECT_EQ(Title(), "list.tdl");
        toolkit->dialogScripts = {PressOk, PressOk};
        WriteBytes(list, "700ms silence.\n");
        Send({CommandEditValue});
        Undo();
        EXPECT_EQ(Title(), "copy.tdf*") << "a list's length is no step";
        Redo();
        Send({CommandNewList});
        EXPECT_EQ(Title() + window.document.path, "Unsaved list*");
    });
    std::filesystem::remove(copy);
    Run([&](MemoryMainWindow&) {
        Send({CommandStereo, WaveformCommand(ToneSine)});
        toolkit->answers = {LMessageAnswer::No};
        Send({WaveformCommand(ToneSine)});
        EXPECT_EQ(Title(), "copy.tdf*") << "which is gone";
    });
}

TEST_F(History, AnUnsavedListStaysWhileItCanBeGoneBackTo) {
    Run([&](MemoryMainWindow&) {
        const auto makeList = [this] {
            const auto add = [](MemoryDialog& editor) {
                editor.Press(ListAddSilence);
                editor.Press(LCommandOk);
            };
            toolkit->dialogScripts = {add, Typed("100")};
            Send({CommandNewList});
            return EditedList();
        };
        const std::string first = makeList();
        toolkit->answers = {LMessageAnswer::No};
        const std::string second = makeList();
        EXPECT_NE(first, second);
        EXPECT_TRUE(std::filesystem::exists(first)) << "neither edited nor played, but a step back";
        Undo();
        EXPECT_EQ(Rows(), Texts{"Unsaved list="});
        Redo();
        EXPECT_TRUE(std::filesystem::exists(second));
    });
}

TEST_F(History, FilesOpenedLastAreOfferedTheNewestFirst) {
    Texts tones;
    for (int i = 0; i < 12; ++i)
        tones.push_back(WriteTone("tone" + std::to_string(i) + ".tdf", Tone440()));
    Run([&](MemoryMainWindow& window) {
        EXPECT_FALSE(Menu(CommandOpenRecent).enabled);
        for (const std::string& tone : tones)
            window.Drop({tone});
        window.Drop({tones[5]});
    });
    Run([&](MemoryMainWindow& window) {
        EXPECT_EQ(Menu(CommandOpenRecent + 1).text.substr(0, 10), "tone11.tdf");
        window.Choose(CommandOpenRecent + 1);
        Undo();
        Send({CommandSelection});
        EXPECT_EQ(Menu(CommandOpenRecent).text.substr(0, 10), "tone11.tdf") << "what is gone back to stays";
        window.Drop({tones[5]});
        Texts names;
        for (int i = 0; i < 10; ++i)
            names.push_back(Menu(CommandOpenRecent + i).text.substr(4, 2));
        EXPECT_THAT(names, ElementsAre("5.", "11", "10", "9.", "8.", "7.", "6.", "4.", "3.", "2."));
        EXPECT_THAT(Menu(CommandOpenRecent).text, ::testing::StartsWith("tone5.tdf  (/"));
        window.Choose(CommandOpenRecent + 9);
        EXPECT_EQ(Title(), "tone2.tdf");
        EXPECT_EQ(Menu(CommandOpenRecent).text.substr(0, 9), "tone2.tdf");
        std::filesystem::remove(tones[5]);
        window.Choose(CommandOpenRecent + 1);
        EXPECT_EQ(Boxes(), "Error|The file \"" + tones[5] + "\" can't be read: No such file or directory.");
        EXPECT_EQ(Title(), "tone2.tdf");
    });
}

} // namespace
