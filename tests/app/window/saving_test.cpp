#include "app/list_editor/edited_list.h"
#include "support/app_window.h"
#include "support/full_disk.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

enum : int { Save = 1110, SaveList = 1115, SaveAsWav = 1116 };

/// What is saved from the main window, and what is lost by nothing that goes wrong.
class Saving : public App {
protected:
    std::string WriteList(const std::string& name, const std::string& lines) {
        WriteBytes(folder / name, lines);
        return folder / name;
    }
    /// Opens a list as the current tone, by OK in its editor.
    void RunList(const std::string& list, const std::function<void()>& user) {
        dialogs = {[](MemoryDialog& editor) { editor.Press(LCommandOk); }};
        Run([&](MemoryMainWindow&) { user(); }, {list});
    }
    static SonvireData Lasting(std::uint32_t milliseconds, bool stereo = false) {
        SonvireData tone;
        tone.SetDuration(milliseconds);
        tone.flags = static_cast<std::uint16_t>(tone.flags | (stereo ? ToneFlagStereo : 0));
        return tone;
    }
    /// Presses Cancel in the progress dialog once some blocks are written.
    void CancelSoon() {
        toolkit->onDialog = [this](MemoryDialog& shown) { progress = &shown; };
        toolkit->whileDispatched = [this] {
            if (progress && ++dispatched == 4)
                progress->Press(LCommandCancel);
        };
    }

    MemoryDialog* progress = nullptr;
    int dispatched = 0;
};

TEST_F(Saving, WhatAListWillNotPlayIsToldFirst) {
    const std::string out = folder / "out.wav", gone = folder / "gone.tdf";
    const std::string endless = WriteTone("endless.tdf", Tone440());
    const std::string list = WriteList("list.tdl", gone + "\n" + endless + "\n20ms silence.\n");
    files = {{out}, {out}};
    RunList(list, [&] {
        toolkit->boxes.clear();
        Send({SaveAsWav});
        EXPECT_THAT(toolkit->boxes,
                    ElementsAre(::testing::AllOf(
                        HasSubstr("\"" + endless + "\" is endless; nothing behind it plays"),
                        HasSubstr("\"" + gone + "\" No such file or directory; an endless"))));
        EXPECT_FALSE(std::filesystem::exists(out)) << "cancelled";
        toolkit->answers = {LMessageAnswer::Ok};
        Send({SaveAsWav});
        EXPECT_TRUE(std::filesystem::exists(out));
    });
}

TEST_F(Saving, AStoppedRenderingKeepsItsBlocksOrTheFileBefore) {
    const std::string path = folder / "sound.wav";
    for (const std::string before : {"", "precious"}) {
        if (!before.empty())
            WriteBytes(path, before);
        files = {{path}};
        progress = nullptr, dispatched = 0;
        Run([&](MemoryMainWindow&) {
            Send({2105});
            CancelSoon();
            toolkit->answers = {LMessageAnswer::Yes};
            Send({SaveAsWav});
        });
        if (before.empty())
            EXPECT_EQ(std::filesystem::file_size(path), 46 + 3 * 8192 * 2U)
                << "a shorter file, but a whole one";
        else
            EXPECT_EQ(ReadBytes(path), before);
    }
    const FullDisk full;
    files = {{path}};
    Run([&](MemoryMainWindow&) {
        toolkit->answers = {LMessageAnswer::Yes};
        Send({SaveAsWav});
        EXPECT_EQ(toolkit->boxes.back(), "Error|The file \"" + path + "\" could not be written in full: File too large.");
    });
    EXPECT_EQ(ReadBytes(path), "precious");
}

TEST_F(Saving, WhatNoWaveFileHoldsIsRefused) {
    const std::string hours = WriteTone("hours.tdf", Lasting(8 * 3600 * 1000));
    struct {
        std::string opened;
        const char* reason;
    } const cases[] = {
        {WriteTone("wide.tdf", Lasting(30'000'000, true)), "is too long for a WAVE file, which holds 4 GiB"},
        {WriteTone("ages.tdf", Lasting(50'000'000)),
         "lasts longer than the 13 and a half hours that a tone can be counted for"},
        {WriteList("twice.tdl", hours + "\n" + hours + "\n"),
         "is too long for a WAVE file, which holds 4 GiB"},
    };
    for (const auto& each : cases) {
        files = {{folder / "out.wav"}};
        RunList(each.opened, [&] {
            Send({SaveAsWav});
            EXPECT_THAT(toolkit->boxes,
                        ElementsAre(std::string("Error|The tone can't be saved: it ") + each.reason + "."));
        });
        EXPECT_FALSE(std::filesystem::exists(folder / "out.wav"));
    }
}

TEST_F(Saving, ACopyOfAListFindsWhatLiesBesideTheOldOne) {
    std::filesystem::create_directory(folder / "elsewhere");
    const std::string copy = folder / "elsewhere/copy.tdl", same = folder / "same.tdl";
    WriteTone("tone.tdf", Tone440(true));
    const std::string list = WriteList("list.tdl", "tone.tdf\r\n20ms silence.\n");
    files = {{same}, {copy}};
    RunList(list, [&] {
        Send({SaveList});
        EXPECT_EQ(ReadBytes(same), ReadBytes(list)) << "byte for byte";
        Send({SaveList});
        EXPECT_EQ(ReadBytes(copy), (folder / "tone.tdf") + "\n20ms silence.\n");
        EXPECT_EQ(toolkit->boxes, Texts{});
    });
}

TEST_F(Saving, ADotInANameEndsItOnlyBeforeLetters) {
    files = {{folder / "sine 1.5kHz"}, {folder / "plain"}, {folder / "sound.wav"}};
    Run([&](MemoryMainWindow&) { Send({2105, Save, Save, Save}); });
    for (const char* name : {"sine 1.5kHz.tdf", "plain.tdf", "sound.wav"})
        EXPECT_TRUE(std::filesystem::exists(folder / name)) << name;
}

TEST_F(Saving, NoiseIsNoListToSave) {
    files = {{folder / "noise.tdl"}};
    Run([&](MemoryMainWindow& window) {
        Send({2116});
        window.Choose(SaveList);
        EXPECT_THAT(toolkit->boxes, ElementsAre("Error|The tone is no list, so there is none to save."));
        EXPECT_FALSE(std::filesystem::exists(folder / "noise.tdl"));
    });
}

} // namespace
