#include "support/app_window.h"

namespace {

constexpr int Deselect = -1;
constexpr int SelectFirst = -2;
constexpr int Sine = WaveformCommand(ToneSine), Square = WaveformCommand(ToneSquare),
              White = WaveformCommand(ToneWhiteNoise), Pink = WaveformCommand(TonePinkNoise);
constexpr int Endless = CommandContinuous, Finite = CommandSpecifiedDuration, Linear = CommandSweepLinear,
              Log = CommandSweepLog, Mono = CommandMono, Stereo = CommandStereo,
              Amplitudes = CommandVariableAmplitude, One = CommandOneTone, Loop = CommandLoop;

/// Every number from each pair's first to its last.
Ints Span(std::initializer_list<std::pair<int, int>> ranges) {
    Ints all;
    for (const auto& [first, last] : ranges)
        for (int each = first; each <= last; ++each)
            all.push_back(each);
    return all;
}
Ints operator+(Ints some, const Ints& more) {
    some.insert(some.end(), more.begin(), more.end());
    return some;
}

class Enabling : public App {
protected:
    void ExpectMenu(const Ints& disabled, const Ints& marked) {
        const Ints webLinks = {CommandWebSite, CommandReportProblem}; // no site is set
        const auto with = [this](bool MemoryItem::*state, bool set) {
            Ints commands = Menu().With(state, set);
            std::erase_if(commands,
                          [](int command) { // those follow from what has been done, and from the view
                              return command >= CommandUndo && command <= CommandCopyCsv;
                          });
            return commands;
        };
        EXPECT_EQ(with(&MemoryItem::enabled, false), disabled + webLinks);
        EXPECT_EQ(with(&MemoryItem::marked, true), marked);
    }
    /// Tool bar items look as the menu entries that do the same, and those without one as the modes are.
    void ExpectToolBarsAsTheMenu() {
        for (const MemoryToolBar* bar : {toolkit->mainWindow->toolBar, toolkit->mainWindow->smallToolBar})
            for (const auto& [command, item] : bar->items)
                if (const auto same = Menu().items.find(command); same != Menu().items.end()) {
                    EXPECT_EQ(item.enabled, same->second.enabled) << command;
                    EXPECT_EQ(item.marked, command == CommandPlay ? !item.enabled : same->second.marked)
                        << command;
                }
        const MemoryToolBar& small = *toolkit->mainWindow->smallToolBar;
        EXPECT_EQ(small[CommandStereoToggle].enabled, Menu()[Stereo].enabled) << "stereo";
        EXPECT_EQ(small[CommandStereoToggle].marked, Menu()[Stereo].marked);
        EXPECT_EQ(small[CommandFiniteToggle].marked, !Menu()[Endless].marked) << "duration";
        EXPECT_EQ(small[CommandFiniteToggle].enabled, !small[CommandLoadList].marked)
            << "but the list's is its own";
    }
    const MemoryMenu& Menu() { return *toolkit->mainWindow->menu; }
};

TEST_F(Enabling, FollowsTheTone) {
    const Ints noRow = Span({{CommandIncrease, CommandEditValue}}),
               noComponents = Span({{Linear, Log}, {Stereo, Amplitudes}, {One, CommandSixteenTones}});
    const Ints stopped = {CommandStop, CommandSaveList}, sine = {Endless, Mono, Sine, One};
    const Ints noise = Ints{CommandStop} + noComponents,
               noiseNoRow = Ints{CommandStop} + noRow + noComponents;
    const Ints all = {Log, Stereo, Amplitudes, Square, Tones(3)};
    constexpr int FiniteKey = CommandFiniteToggle, StereoKey = CommandStereoToggle;
    struct {
        const char* name;
        Ints commands, disabled, marked;
    } const cases[] = {
        {"a continuous sine", {}, stopped, sine},
        {"no row selected", {Deselect}, stopped + noRow, sine},
        {"everything on", all, stopped, all},
        {"linear after logarithmic", {Log, Linear}, stopped, {Linear, Mono, Sine, One}},
        {"loop of a continuous tone", {Loop}, stopped, {Loop, Finite, Mono, Sine, One}},
        {"loop on and off", {Loop, Loop}, stopped, {Finite, Mono, Sine, One}},
        {"continuous after a looping sweep", {Log, Loop, Endless}, stopped, sine},
        {"noise", all + Ints{White, SelectFirst}, noise, {Finite, Mono, White, One}},
        {"noise, no row selected", {Log, White, Deselect}, noiseNoRow, {Finite, Mono, White, One}},
        {"endless noise", {Pink, SelectFirst}, noiseNoRow, {Endless, Mono, Pink, One}},
        {"sine again", {Stereo, Pink, Sine, SelectFirst}, stopped, sine},
        {"toggled", {FiniteKey, StereoKey}, stopped, {Finite, Stereo, Sine, One}},
        {"toggled twice", {FiniteKey, StereoKey, StereoKey, FiniteKey}, stopped, sine},
        {"a toggle of a loop", {Loop, FiniteKey}, stopped, sine},
        {"playing", {CommandPlay}, {CommandPlay, CommandSaveList}, sine},
        {"ids that nothing has", {3017, 3000, 2119, 9999}, stopped, sine}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const Forgotten again;
        Run([&](MemoryMainWindow& window) {
            for (const int command : each.commands)
                if (command < 0)
                    List().Select(command == Deselect ? Ints{} : Ints{0});
                else if (window.smallToolBar->items.contains(command))
                    window.smallToolBar->Press(command);
                else
                    Send({command});
            ExpectMenu(each.disabled, each.marked);
            ExpectToolBarsAsTheMenu();
        });
    }
}

TEST_F(Enabling, ShowsAListAsOne) {
    RunList(WriteList("list.tdl", "200ms silence.\n"), [&] {
        ExpectMenu(Ints{CommandStop} + Span({{CommandIncrease, Amplitudes}, {One, CommandSixteenTones}}),
                   {Finite, Mono, One});
        EXPECT_TRUE((*toolkit->mainWindow->smallToolBar)[CommandLoadList].marked);
        ExpectToolBarsAsTheMenu();
        EXPECT_TRUE(Control(ControlList).toolTip.starts_with("The entries of the list, of which the lowest"));
        toolkit->mainWindow->Choose(WaveformCommand(ToneTriangular));
        EXPECT_TRUE(Control(ControlList).toolTip.starts_with("Tone details"));
        // the first row is selected
        ExpectMenu({CommandStop, CommandSaveList}, {Finite, Mono, WaveformCommand(ToneTriangular), One});
        ExpectToolBarsAsTheMenu();
    });
}

TEST_F(Enabling, ThePopUpMenuIsTheToneMenu) {
    popupChoices = {White, Stereo, 0};
    Run([&](MemoryMainWindow&) {
        Send({CommandListRightClick});
        EXPECT_EQ(Rows(), Texts{"White Noise="});
        Send({CommandListRightClick});
        EXPECT_EQ(Rows(), Texts{"White Noise="}) << "noise is not stereo";
        EXPECT_EQ(toolkit->popup[CommandEditValue].path, "Edit Value...");
        EXPECT_TRUE(toolkit->popup[White].marked);
        EXPECT_EQ(Menu()[CommandEditValue].path, "Tone/Edit Value");
    });
}

} // namespace
