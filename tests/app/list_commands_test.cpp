#include "app/edited_list.h"
#include "support/app_window.h"
#include "sys/settings.h"
#include "sys/user_data.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

enum : int { Save = 1110, SaveList = 1115, SaveAsWav = 1116, LoadList = 2118 };

class ListCommands : public App {
protected:
    ListCommands() {
        WriteTone("tone.tdf", Tone440(true));
        WriteBytes(list, "250ms silence.\n" + (folder / "tone.tdf") + "\n");
    }
    static void PressOk(MemoryDialog& editor) { editor.Press(LCommandOk); }
    SonvireData KeptTone() {
        SonvireData kept;
        EXPECT_TRUE(kept.ReadFromFile((GetUserDataFolder() + "/current.tdf").c_str()));
        return kept;
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
            MemoryToolBar& bar = window.smallToolBars.at(ControlSmallToolBar);
            each.command == LoadList ? bar.Press(LoadList) : window.Choose(each.command);
            EXPECT_EQ(Rows().back(), each.lastRow);
            EXPECT_EQ(bar[LoadList].pressed, each.duration == 1250);
            EXPECT_EQ(toolkit->boxes, each.box.empty() ? Texts{} : Texts{each.box});
        });
        EXPECT_EQ(KeptTone().durationMs, each.duration);
    }
    EXPECT_EQ(LUserSettingGetText("tonelist", "readfolder"), list.substr(0, list.rfind('/')));
}

TEST_F(ListCommands, AListIsSavedAsAListOrAsItsSound) {
    const std::string copy = folder / "copy.tdl", sound = folder / "sound.wav", tone = folder / "tone.tdf";
    const std::string content = ReadBytes(list), toneContent = ReadBytes(tone);
    struct {
        int command;
        std::string chosen, lastRow, box;
    } const cases[] = {
        {SaveList, sound, list, ""},
        {Save, sound, list, ""},
        {SaveAsWav, sound, list, ""},
        {SaveList, "", list, ""},
        {SaveList, tone, list, "Error|The file \"" + tone + "\" can't be written: the list plays it."},
        {SaveList, folder / "no/copy.tdl", list,
         "Error|The file \"" + (folder / "no/copy.tdl") + "\" can't be written: No such file or directory."},
        {SaveList, list, list, ""},
        {Save, copy, copy, ""},
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
                EXPECT_EQ(Rows().back(), each.lastRow + "=");
                const bool exists = each.chosen == tone || each.chosen == list;
                EXPECT_EQ(toolkit->boxes.size(), (each.box.empty() ? 0U : 1U) + (exists ? 1U : 0U));
                EXPECT_THAT(each.box,
                            ::testing::AnyOf("", toolkit->boxes.empty() ? "" : toolkit->boxes.back()));
            },
            {list});
        EXPECT_EQ(ReadBytes(list), content);
        EXPECT_EQ(ReadBytes(tone), toneContent);
        EXPECT_TRUE(each.chosen != sound || std::filesystem::file_size(sound) == 46 + 55125 * 2U);
        EXPECT_TRUE(each.chosen != copy || ReadBytes(copy) == content);
    }
}

TEST_F(ListCommands, AListIsRenderedOverAFileThatItPlays) {
    const std::string piece = folder / "piece.wav";
    files = {{piece}, {piece}};
    Run([&](MemoryMainWindow&) {
        Send({2105, SaveAsWav}); // a second of tone
        EXPECT_EQ(std::filesystem::file_size(piece), 46 + 44100 * 2U);
    });
    const std::string tone = ReadBytes(piece).substr(46);
    WriteBytes(list, piece + "\n500ms silence.\n" + piece + "\n");
    dialogs = {PressOk};
    files = {{piece}};
    Run(
        [&](MemoryMainWindow&) {
            toolkit->answers = {LMessageAnswer::Yes};
            Send({SaveAsWav});
        },
        {list});
    EXPECT_TRUE(ReadBytes(piece).substr(46) == tone + std::string(22050 * 2, '\0') + tone);
    EXPECT_EQ(KeptTone().durationMs, 5500U) << "of the list as it is now";
}

} // namespace
