#include "app/list_editor/edited_list.h"
#include "support/app_window.h"

#include <gmock/gmock.h>

namespace {

using ::testing::HasSubstr;

enum : int { Save = 1110, SaveList = 1115, SaveAsWav = 1116, LoadList = 2118 };

class ListCommands : public App {
protected:
    ListCommands() {
        WriteTone("tone.tdf", Tone440(true));
        WriteBytes(list, "250ms silence.\n" + (folder / "tone.tdf") + "\n");
    }
    const std::string list = folder / "list.tdl";
};

TEST_F(ListCommands, AListIsLoadedBySmallToolBarOnly) {
    const std::string text = folder / "a.txt";
    struct {
        int command;
        std::string chosen;
        bool ok;
        std::string lastRow;
        std::uint32_t duration;
        std::string box;
    } const cases[] = {
        {LoadList, list, true, list + "=", 1250, ""},
        {LoadList, list, false, "Sine 1 Frequency=1000.00Hz", 60'000, ""},
        {LoadList, "", true, "Sine 1 Frequency=1000.00Hz", 1000, ""},
        {LoadList, text, true, "Sine 1 Frequency=1000.00Hz", 1000,
         "Unrecognized File Type|Not a tone list file"},
        {1114, list, true, "Sine 1 Frequency=1000.00Hz", 1000, ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.chosen + std::to_string(each.ok));
        std::filesystem::remove_all(std::getenv("XDG_DATA_HOME"));
        dialogs.clear();
        if (each.ok)
            dialogs = {PressOk};
        files = {{each.chosen}};
        Run([&](MemoryMainWindow& window) {
            MemoryToolBar& bar = *window.smallToolBar;
            each.command == LoadList ? bar.Press(LoadList) : window.Choose(each.command);
            EXPECT_EQ(Rows().back(), each.lastRow);
            EXPECT_EQ(bar[LoadList].marked, each.duration == 1250);
            EXPECT_EQ(Boxes(), each.box);
        });
        EXPECT_EQ(KeptTone().durationMs, each.duration);
    }
    EXPECT_EQ(LUserSettingGetText("tonelist", "readfolder"), list.substr(0, list.rfind('/')));
}

TEST_F(ListCommands, AListIsSavedAsAListOrAsItsSound) {
    const std::string copy = folder / "copy.tdl", sound = folder / "sound.wav", tone = folder / "tone.tdf";
    const std::string content = ReadBytes(list), toneContent = ReadBytes(tone);
    const std::string error = "Error|The file \"", gone = folder / "no/copy.tdl";
    struct {
        int command;
        std::string chosen, box;
    } const cases[] = {
        {SaveList, sound, ""},
        {Save, sound, ""},
        {SaveAsWav, sound, ""},
        {SaveList, "", ""},
        {SaveList, tone, error + tone + "\" can't be written: the list plays it."},
        {SaveList, gone, error + gone + "\" can't be written: No such file or directory."},
        {SaveList, list, ""},
        {Save, copy, ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.chosen);
        dialogs = {PressOk};
        files = {{each.chosen}};
        std::filesystem::remove(sound);
        Run(
            [&](MemoryMainWindow&) {
                toolkit->answers = {LMessageAnswer::Yes};
                Send({each.command});
                EXPECT_EQ(Rows().back(), (each.chosen == copy ? copy : list) + "=");
                if (each.chosen == tone || each.chosen == list) {
                    EXPECT_THAT(Boxes(), HasSubstr("Do you want to replace it?"));
                    toolkit->boxes.erase(toolkit->boxes.begin());
                }
                EXPECT_EQ(Boxes(), each.box);
            },
            {list});
        EXPECT_EQ(ReadBytes(list), content);
        EXPECT_EQ(ReadBytes(tone), toneContent);
        EXPECT_TRUE(each.chosen != sound || std::filesystem::file_size(sound) == 46 + 55125 * 2U);
        EXPECT_TRUE(each.chosen != copy || ReadBytes(copy) == content);
    }
}

TEST_F(ListCommands, AListIsNotRenderedOverAFileThatItPlays) {
    const std::string piece = folder / "piece.wav";
    files = {{piece}, {piece}};
    Run([&](MemoryMainWindow&) { Send({2105, SaveAsWav}); }); // a second of tone
    const std::string sound = ReadBytes(piece);
    EXPECT_EQ(sound.size(), 46 + 44100 * 2U);
    WriteBytes(list, piece + "\n500ms silence.\n");
    dialogs = {PressOk};
    files = {{piece}};
    Run(
        [&](MemoryMainWindow&) {
            toolkit->answers = {LMessageAnswer::Yes};
            Send({SaveAsWav});
            EXPECT_EQ(toolkit->boxes.back(), "Error|The file \"" + piece + "\" is read by the input.");
        },
        {list});
    EXPECT_EQ(ReadBytes(piece), sound);
}

} // namespace
