#pragma once

#include "app/setting_names.h"
#include "app/window/command_ids.h"
#include "app/window/main_dialog.h"
#include "support/memory_toolkit.h"
#include "support/owner.h"
#include "support/temp_dir.h"
#include "support/test_output.h"
#include "sys/desktop/folders.h"
#include "sys/path.h"

#include <gtest/gtest.h>

using Ints = std::vector<int>;
using Texts = std::vector<std::string>;

constexpr int Tones(int count) {
    return int{CommandNumberOfTones} + count;
}

/// As if the program had never run, nor crashed.
struct Forgotten {
    Forgotten() {
        for (const char* kept : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            std::filesystem::remove_all(std::getenv(kept));
    }
};

/// The program without a display and with an output of the test's own: each run is one start of it, and what
/// it keeps from one to the next is gone with the test.
class App : public ::testing::Test {
protected:
    /// Starts the program with these arguments; `user` is all that happens to it, then the window is closed.
    void Run(const std::function<void(MemoryMainWindow&)>& user, const Texts& given = {},
             const std::function<void(MainDialog&)>& before = {}) {
        std::vector<const char*> arguments = {"sonvire"};
        for (const std::string& each : given)
            arguments.push_back(each.c_str());
        toolkit.emplace();
        toolkit->dialogScripts = std::move(dialogs);
        toolkit->chosenFiles = std::move(files);
        toolkit->popupChoices = std::move(popupChoices);
        MainDialog window(*toolkit, static_cast<int>(arguments.size()), arguments.data(),
                          {.open = output.Opener(), .listNames = [] { return Texts{}; }});
        dialog = &window;
        if (before)
            before(window);
        toolkit->running = [&] { user(*toolkit->mainWindow); };
        window.Run();
    }

    /// Starts with a list as the current tone, by OK in its editor.
    void RunList(const std::string& list, const std::function<void()>& user) {
        dialogs = {PressOk};
        Run([&](MemoryMainWindow&) { user(); }, {list});
    }

    /// Sends commands as the menu would, enabled or not.
    void Send(const Ints& commands) {
        for (const int command : commands)
            dialog->Command(command);
    }
    MemoryControl& Control(int id) { return toolkit->mainWindow->controls[id]; }
    MemoryList& List() { return *Control(ControlList).list; }
    /// The rows as "name=value".
    Texts Rows() {
        Texts rows;
        for (const auto& row : List().rows)
            rows.push_back(row[0] + "=" + row[1]);
        return rows;
    }
    /// What all message boxes have said, each with its title.
    std::string Boxes() {
        std::string all;
        for (const std::string& box : toolkit->boxes)
            all += (all.empty() ? "" : "\n") + box;
        return all;
    }
    /// Runs events of both kinds until the condition holds.
    bool Wait(const std::function<bool()>& holds) {
        return WaitUntil(loop, [&] {
            toolkit->DispatchPending();
            return holds();
        });
    }
    bool WaitForPlayback(int count) {
        return Wait([&] { return output.opened == count; });
    }

    std::string WriteTone(const std::string& name, const SonvireData& tone) {
        EXPECT_FALSE(tone.WriteToFile((folder / name).c_str()));
        return folder / name;
    }
    std::string WriteList(const std::string& name, const std::string& lines) {
        WriteBytes(folder / name, lines);
        return folder / name;
    }
    /// A tone that shows 440.00Hz, and ends after a second where it is to.
    static SonvireData Tone440(bool finite = false) {
        SonvireData tone;
        tone.startLeftHz[0] = 440;
        if (finite)
            tone.SetDuration(1000);
        return tone;
    }

    /// The tone that the program kept at its end.
    static SonvireData KeptTone() {
        SonvireData kept;
        EXPECT_FALSE(kept.ReadFromFile((GetUserDataFolder() + "/current.tdf").c_str()));
        return kept;
    }
    /// The stored text, "-" where there is none.
    template <class Setting>
    static std::string Stored(const Setting& setting) {
        return LUserSettingGetText(setting.section, setting.key, "-");
    }
    static std::string EditedList() { return Setting::EditList.Get(); }

    // What the user will do.
    static void PressOk(MemoryDialog& dialog) { dialog.Press(LCommandOk); }
    static std::function<void(MemoryDialog&)> Typed(const std::string& text) {
        return [text](MemoryDialog& box) {
            box.Type(102, text);
            box.Press(LCommandOk);
        };
    }
    std::deque<std::function<void(MemoryDialog&)>> dialogs;
    std::deque<LChosenFile> files;
    std::deque<int> popupChoices;

    const Forgotten forgotten;
    const TempDir folder;
    LEventLoop loop;
    TestOutput output;
    std::optional<MemoryToolkit> toolkit; ///< of the last run
    MainDialog* dialog = nullptr;
};
