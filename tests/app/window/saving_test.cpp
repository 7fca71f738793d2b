#include "app/list_editor/list_dlg_layout.h"
#include "hires/files/file_source.h"
#include "sound/files/wave_file.h"
#include "support/app_window.h"
#include "support/full_disk.h"

#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// What is saved from the main window, and what is lost by nothing that goes wrong.
class Saving : public App {
protected:
    Saving() {
        WriteTone("tone.tdf", Tone440(true));
        WriteBytes(list, "250ms silence.\n" + (folder / "tone.tdf") + "\n");
    }
    static SonvireData Lasting(std::uint32_t milliseconds, bool stereo = false) {
        SonvireData tone;
        tone.SetDuration(milliseconds);
        tone.flags = static_cast<std::uint16_t>(tone.flags | (stereo ? ToneFlagStereo : 0));
        return tone;
    }
    const std::string list = folder / "list.tdl";
};

TEST_F(Saving, WhatAListWillNotPlayIsToldFirst) {
    const std::string out = folder / "out.wav", gone = folder / "gone.tdf";
    const std::string endless = WriteTone("endless.tdf", Tone440());
    WriteList("list.tdl", gone + "\n" + endless + "\n20ms silence.\n");
    files = {{out}, {out}};
    RunList(list, [&] {
        toolkit->boxes.clear();
        Send({CommandSaveAsWav});
        EXPECT_THAT(toolkit->boxes,
                    ElementsAre(::testing::AllOf(
                        HasSubstr("\"" + endless + "\" is endless; nothing behind it plays"),
                        HasSubstr("\"" + gone + "\" can't be read: No such file or directory; an endless"))));
        EXPECT_FALSE(std::filesystem::exists(out)) << "cancelled";
        toolkit->answers = {LMessageAnswer::Ok};
        Send({CommandSaveAsWav});
        EXPECT_TRUE(std::filesystem::exists(out));
    });
}

TEST_F(Saving, AStoppedRenderingKeepsItsBlocksOrTheFileBefore) {
    const std::string path = folder / "sound.wav";
    for (const std::string before : {"", "precious"}) {
        if (!before.empty())
            WriteBytes(path, before);
        Setting::HighRate.Set(before.empty() ? 0 : 192000); // in larger blocks
        files = {{path}};
        MemoryDialog* progress = nullptr;
        int dispatched = 0;
        Run([&](MemoryMainWindow&) {
            Send({CommandSpecifiedDuration});
            toolkit->onDialog = [&](MemoryDialog& shown) { progress = &shown; };
            toolkit->whileDispatched = [&] {
                if (progress && ++dispatched == (before.empty() ? 4 : 2)) // once some blocks are written
                    progress->Press(LCommandCancel);
            };
            toolkit->answers = {LMessageAnswer::Yes};
            Send({CommandSaveAsWav});
        });
        EXPECT_EQ(std::filesystem::file_size(path), before.empty() ? 46 + 3 * 8192 * 2U : 8U)
            << "a shorter file, but a whole one";
    }
    Setting::HighRate.Set(0);
    const FullDisk full;
    files = {{path}, {folder / "sound.flac"}};
    Run([&](MemoryMainWindow&) {
        toolkit->answers = {LMessageAnswer::Yes};
        for (const std::string& each : {path, folder / "sound.flac"}) {
            Send({CommandSaveAsWav});
            EXPECT_EQ(toolkit->boxes.back(),
                      "Error|The file \"" + each + "\" could not be written in full: File too large.");
        }
    });
    EXPECT_EQ(ReadBytes(path), "precious");
}

TEST_F(Saving, WhatNoWaveFileHoldsIsRefused) {
    const std::string hours = WriteTone("hours.tdf", Lasting(8 * 3600 * 1000));
    const std::string large = "is too long for a WAVE file, which holds 4 GiB.";
    const std::string ages = "lasts longer than the 13 and a half hours that a tone can be counted for.";
    struct {
        std::string opened, reason;
    } const cases[] = {{WriteTone("wide.tdf", Lasting(30'000'000, true)), large},
                       {WriteTone("ages.tdf", Lasting(50'000'000)), ages},
                       {WriteList("twice.tdl", hours + "\n" + hours + "\n"), large}};
    for (const auto& each : cases) {
        files = {{folder / "out.wav"}};
        RunList(each.opened, [&] {
            Send({CommandSaveAsWav});
            EXPECT_EQ(toolkit->boxes, Texts{"Error|The tone can't be saved: it " + each.reason});
        });
        EXPECT_FALSE(std::filesystem::exists(folder / "out.wav"));
    }
}

TEST_F(Saving, ACopyOfAListFindsWhatLiesBesideTheOldOne) {
    std::filesystem::create_directory(folder / "elsewhere");
    const std::string copy = folder / "elsewhere/copy.tdl", same = folder / "same.tdl";
    WriteList("list.tdl", "tone.tdf\r\n20ms silence.\n");
    files = {{same}, {copy}};
    RunList(list, [&] {
        Send({CommandSaveList});
        EXPECT_EQ(ReadBytes(same), ReadBytes(list)) << "byte for byte";
        EXPECT_EQ(toolkit->mainWindow->passing, "Saved same.tdl in " + GetFolder(same) + ": 1.02 s");
        Send({CommandSave});
        EXPECT_EQ(Rows().back(), copy + "=");
        EXPECT_EQ(ReadBytes(copy), (folder / "tone.tdf") + "\n20ms silence.\n");
        EXPECT_EQ(toolkit->boxes, Texts{});
    });
}

TEST_F(Saving, AListIsLoadedBySmallToolBarAndMenu) {
    const std::string text = folder / "a.txt", sine = "Sine 1 Frequency=1000.00Hz";
    const std::string unknown = "Unrecognized File Type|Not a tone list file";
    struct {
        int command;
        bool ok;
        std::string chosen, lastRow;
        std::uint32_t duration;
        std::string box;
    } const cases[] = {{CommandLoadList, true, list, list + "=", 1250, ""},
                       {CommandLoadList, false, list, sine, 1000, ""},
                       {CommandLoadList, true, "", sine, 1000, ""},
                       {CommandLoadList, true, text, sine, 1000, unknown},
                       {CommandLoadListMenu, true, list, list + "=", 1250, ""}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.chosen + std::to_string(each.ok));
        const Forgotten again;
        dialogs.assign(each.ok ? 1 : 0, PressOk);
        files = {{each.chosen}};
        Run([&](MemoryMainWindow& window) {
            MemoryToolBar& bar = *window.smallToolBar;
            each.command == CommandLoadList ? bar.Press(CommandLoadList) : window.Choose(each.command);
            EXPECT_EQ(Rows().back(), each.lastRow);
            EXPECT_EQ(bar[CommandLoadList].marked, each.duration == 1250);
            EXPECT_EQ(Boxes(), each.box);
        });
        EXPECT_EQ(KeptTone().durationMs, each.duration);
        EXPECT_TRUE(each.duration != 1250 || Stored(Setting::ListReadFolder) + "/" == folder / "");
    }
}

TEST_F(Saving, AListIsSavedAsAListOrAsItsSound) {
    const std::string sound = folder / "sound.wav", inner = WriteList("inner.tdl", "");
    const std::string wave = folder / "wave.wav";
    const std::vector<int> samples(100, 16);
    LWaveFile::OpenSinkPCM(wave.c_str(), 44100, 1, 16, 0)->Write(samples.data(), 100);
    WriteBytes(list, ReadBytes(list) + "inner.tdl\nwave.wav\n");
    const std::string content = ReadBytes(list), waveContent = ReadBytes(wave);
    const std::string error = "Error|The file \"", gone = folder / "no/copy.tdl";
    const auto ofAnotherKind = [](const char* name, const char* first) {
        return std::string("Error|The name \"") + name +
               "\" is one for another kind of file: here it has to end in " + first +
               ".wav, .flac, .aiff, .aif, .w64 or .caf.";
    };
    struct {
        int command;
        std::string chosen, box;
    } const cases[] = {
        {CommandSaveList, sound, ""},
        {CommandSave, sound, ""},
        {CommandSaveAsWav, sound, ""},
        {CommandSaveList, "", ""},
        {CommandSaveList, folder / "TONE.TDF", ofAnotherKind("TONE.TDF", ".tdl, ")},
        {CommandSaveAsWav, folder / "tone.tdf", ofAnotherKind("tone.tdf", "")},
        {CommandSaveAsWav, list, ofAnotherKind("list.tdl", "")},
        {CommandSaveList, inner, error + inner + "\" can't be written: the list plays it."},
        {CommandSaveAsWav, wave, error + wave + "\" is read by the input."},
        {CommandSaveList, gone,
         "Error|The folder \"" + (folder / "no") + "\" of the file \"copy.tdl\" does not exist."},
        {CommandSaveList, list, ""},
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
                EXPECT_EQ(Rows().back(), list + "=");
                if (Boxes().starts_with("Replace File?"))
                    toolkit->boxes.erase(toolkit->boxes.begin());
                EXPECT_EQ(Boxes(), each.box);
            },
            {list});
        EXPECT_EQ(ReadBytes(list), content);
        EXPECT_EQ(ReadBytes(inner), "");
        EXPECT_EQ(ReadBytes(wave), waveContent);
        EXPECT_TRUE(each.chosen != sound || std::filesystem::file_size(sound) == 46 + 55225 * 2U);
    }
}

TEST_F(Saving, ASoundIsSavedInTheQualityOfItsNameOrOfTheSettings) {
    const std::string low = "1 s, peak -12.04 dBFS", high = low + ", 96 kHz, 24 bits";
    struct {
        int savedRate;
        LChosenFile chosen;
        int components;
        std::string name, told;
        std::uintmax_t bytes; ///< 0 where they are packed
    } const cases[] = {
        {0, {"a.wav"}, 1, "a.wav", low, 46 + 44100 * 2},
        {0, {"a.FLAC"}, 1, "a.FLAC", low + ", 44.1 kHz, 24 bits", 0},
        {96000, {"a.wav"}, 1, "a.wav", high, 0},
        {96000, {"a.raw", 1}, 1, "a.raw.flac", high, 0},
        {96000, {"a.1", 2}, 1, "a.1.aiff", high, 0},
        // 20 log 16 = 24.08
        {48000, {"a.caf"}, 16, "a.caf", "1 s, peak 0.00 dBFS, 48 kHz, 24 bits, lowered by 12.04 dB", 0}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name + std::to_string(each.savedRate));
        Setting::HighRate.Set(each.savedRate);
        files = {{folder / each.chosen.path, each.chosen.filter}};
        Run([&](MemoryMainWindow& window) {
            Send({CommandMono, CommandSpecifiedDuration, Tones(each.components), CommandSaveAsWav});
            EXPECT_EQ(window.passing,
                      "Saved " + each.name + " in " + GetFolder(folder / "a") + ": " + each.told);
            EXPECT_EQ(toolkit->boxes, Texts{});
        });
        if (each.bytes != 0)
            EXPECT_EQ(std::filesystem::file_size(folder / each.name), each.bytes);
        else
            EXPECT_EQ(
                OpenHiresFile(folder / each.name, {}, std::make_shared<LSourceNews>()).source->GetLength(),
                each.savedRate == 0 ? 44100 : each.savedRate);
        std::filesystem::remove(folder / each.name);
    }
}

TEST_F(Saving, AListHasSoundFilesOfAnyKindInHighQuality) {
    files = {{folder / "a.flac"}};
    Run([&](MemoryMainWindow&) { Send({CommandSpecifiedDuration, CommandSaveAsWav}); });
    WriteList("list.tdl", "250ms silence.\na.flac\ngone.tdf\nodd.xyz\n");
    WriteBytes(folder / "odd.xyz", "odd");
    const std::string odd = "is of an unknown type and left out",
                      missing = "can't be read: No such file or directory";
    struct {
        int savedRate;
        std::string total;
        std::size_t filters;
        Texts problems; ///< in playing order
        std::string savedAt;
    } const cases[] = {
        {0, "0.25", 1, {odd, missing + "; an endless sine plays, and nothing behind it", odd, ""}, "44.1"},
        {48000, "1.25", 2, {"is damaged or of a kind that is not read", missing, "", ""}, "48"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.savedRate);
        Setting::HighRate.Set(each.savedRate);
        files = {{""}, {folder / "list.caf"}};
        dialogs = {[&](MemoryDialog& editor) {
            Texts problems;
            for (const auto& row : editor.controls[ListRows].list->rows)
                problems.push_back(row[1]);
            EXPECT_EQ(problems, each.problems);
            EXPECT_EQ(editor.controls.GetText(ListTotal), "Total: " + each.total + " s or more");
            editor.Press(ListAddTone);
            EXPECT_EQ(toolkit->choosers.back().filters.size(), each.filters);
            editor.Press(LCommandOk);
        }};
        Run(
            [&](MemoryMainWindow& window) {
                toolkit->answers = {LMessageAnswer::Ok};
                Send({CommandSaveList});
                EXPECT_THAT(window.passing, HasSubstr("1.25 s, peak -12.04 dBFS, " + each.savedAt + " kHz"));
            },
            {list});
        std::filesystem::remove(folder / "list.caf");
    }
}

} // namespace
