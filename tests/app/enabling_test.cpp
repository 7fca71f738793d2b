#include "support/app_window.h"

#include <set>

namespace {

constexpr int Deselect = -1;
constexpr int SelectFirst = -2;

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
    Ints Disabled(const MemoryMenu& menu) {
        Ints ids;
        for (const auto& [id, item] : menu.items)
            if (!item.enabled)
                ids.push_back(id);
        return ids;
    }
    Ints Marked(const MemoryMenu& menu) {
        Ints ids;
        for (const auto& [id, item] : menu.items)
            if (item.marked)
                ids.push_back(id);
        return ids;
    }
    /// In both tool bars, in the order of their commands.
    std::pair<Ints, Ints> DisabledAndPressed() {
        std::set<int> disabled, pressed;
        const MemoryMainWindow& window = *toolkit->mainWindow;
        for (const MemoryToolBar* bar : {&window.toolBar, &window.smallToolBars.at(ControlSmallToolBar)})
            for (const auto& item : bar->items) {
                if (!item.enabled)
                    disabled.insert(item.row.command);
                if (item.pressed)
                    pressed.insert(item.row.command);
            }
        return {{disabled.begin(), disabled.end()}, {pressed.begin(), pressed.end()}};
    }
};

TEST_F(Enabling, FollowsTheTone) {
    const Ints noFrequencies = Span({{2106, 2107}, {2109, 2110}});
    const Ints oneTone = Span({{3001, 3016}});
    const Ints steps = Span({{2101, 2103}});
    const Ints barNoFrequencies = {122, 2106, 2107, 2110};
    struct {
        const char* name;
        Ints commands, disabled, marked, barDisabled, barPressed;
    } const cases[] = {
        {"a continuous sine", {}, {102, 1115}, {2104, 2108, 2111, 3001}, {102}, {2111}},
        {"no row selected",
         {Deselect},
         Ints{102, 1115} + steps,
         {2104, 2108, 2111, 3001},
         {102, 2101, 2102},
         {2111}},
        {"everything on",
         {2109, 2110, 2107, 2112, 3003},
         {102, 1115},
         {2107, 2109, 2110, 2112, 3003},
         {102},
         {117, 122, 2107, 2110, 2112}},
        {"linear after logarithmic",
         {2107, 2106},
         {102, 1115},
         {2106, 2108, 2111, 3001},
         {102},
         {117, 2106, 2111}},
        {"loop of a continuous tone",
         {118},
         {102, 1115},
         {118, 2105, 2108, 2111, 3001},
         {102},
         {117, 118, 2111}},
        {"loop on and off", {118, 118}, {102, 1115}, {2105, 2108, 2111, 3001}, {102}, {117, 2111}},
        {"continuous after a looping sweep",
         {2107, 118, 2104},
         {102, 1115},
         {2104, 2108, 2111, 3001},
         {102},
         {2111}},
        {"noise forgets but its duration",
         {2109, 2110, 2107, 3016, 2116, SelectFirst},
         Ints{102} + noFrequencies + oneTone,
         {2105, 2108, 2116, 3001},
         Ints{102} + barNoFrequencies,
         {117, 2116}},
        {"noise, no row selected",
         {2107, 2116, Deselect},
         Ints{102} + steps + noFrequencies + oneTone,
         {2105, 2108, 2116, 3001},
         {102, 122, 2101, 2102, 2106, 2107, 2110},
         {117, 2116}},
        {"endless noise",
         {2117, SelectFirst},
         Ints{102} + steps + noFrequencies + oneTone,
         {2104, 2108, 2117, 3001},
         {102, 122, 2101, 2102, 2106, 2107, 2110},
         {2117}},
        {"sine again", {2109, 2117, 2111, SelectFirst}, {102, 1115}, {2104, 2108, 2111, 3001}, {102}, {2111}},
        {"playing", {101}, {101, 1115}, {2104, 2108, 2111, 3001}, {101}, {2111}},
        {"stopped again", {101, 102}, {102, 1115}, {2104, 2108, 2111, 3001}, {102}, {2111}},
        {"ids that nothing has",
         {1114, 3017, 3000, 2119, 9999},
         {102, 1115},
         {2104, 2108, 2111, 3001},
         {102},
         {2111}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        std::filesystem::remove_all(std::getenv("XDG_DATA_HOME"));
        Run([&](MemoryMainWindow& window) {
            for (const int command : each.commands)
                if (command < 0)
                    List().Select(command == Deselect ? Ints{} : Ints{0});
                else
                    Send({command});
            EXPECT_EQ(Disabled(window.menu), each.disabled);
            EXPECT_EQ(Marked(window.menu), each.marked);
            const auto [disabled, pressed] = DisabledAndPressed();
            EXPECT_EQ(disabled, each.barDisabled);
            EXPECT_EQ(pressed, each.barPressed);
        });
    }
}

TEST_F(Enabling, ShowsAListAsOne) {
    WriteBytes(folder / "list.tdl", "200ms silence.\n");
    dialogs = {[](MemoryDialog& editor) { editor.Press(LCommandOk); }};
    Run(
        [&](MemoryMainWindow& window) {
            EXPECT_EQ(Disabled(window.menu), (Ints{102} + Span({{2101, 2110}, {3001, 3016}})));
            EXPECT_EQ(Marked(window.menu), (Ints{2105, 2108, 3001}));
            EXPECT_EQ(DisabledAndPressed(),
                      std::pair(Ints{102, 117, 122, 2101, 2102, 2106, 2107, 2110}, Ints{117, 2118}));
            window.Choose(2113);
            EXPECT_EQ(Disabled(window.menu), (Ints{102, 1115})) << "with its first row selected";
        },
        {folder / "list.tdl"});
}

TEST_F(Enabling, TogglesSwitchTheirModes) {
    struct {
        int pressed;
        Texts rows;
        Ints barPressed;
    } const steps[] = {
        {117, {"Sine 1 Frequency=1000.00Hz", "Sine Duration=1000ms"}, {117, 2111}},
        {122,
         {"Sine 1 Left Frequency=1000.00Hz", "Sine 1 Right Frequency=1000.00Hz", "Sine Duration=1000ms"},
         {117, 122, 2111}},
        {122, {"Sine 1 Frequency=1000.00Hz", "Sine Duration=1000ms"}, {117, 2111}},
        {117, {"Sine 1 Frequency=1000.00Hz"}, {2111}},
        {2110, {"Sine 1 Frequency=1000.00Hz", "Sine 1 Relative Amplitude=0dB"}, {2110, 2111}},
        {2110, {"Sine 1 Frequency=1000.00Hz"}, {2111}},
        {118, {"Sine 1 Frequency=1000.00Hz", "Sine Duration=1000ms"}, {117, 118, 2111}},
        {2115, {"Impulse 1 Frequency=1000.00Hz", "Impulse Duration=1000ms"}, {117, 118, 2115}},
    };
    Run([&](MemoryMainWindow& window) {
        for (const auto& step : steps) {
            window.smallToolBars.at(ControlSmallToolBar).Press(step.pressed);
            EXPECT_EQ(Rows(), step.rows);
            EXPECT_EQ(DisabledAndPressed().second, step.barPressed) << step.pressed;
        }
    });
}

TEST_F(Enabling, ThePopUpMenuIsTheToneMenu) {
    popupChoices = {2116, 2109, 0};
    Run([&](MemoryMainWindow& window) {
        Send({6112});
        EXPECT_EQ(Rows(), Texts{"White Noise="});
        Send({6112});
        EXPECT_EQ(Rows(), Texts{"White Noise="}) << "noise is not stereo";
        EXPECT_EQ(toolkit->popup.lines.size(), 38U);
        EXPECT_EQ(toolkit->popup.items.at(2103).path, "Edit Value...");
        EXPECT_TRUE(toolkit->popup.items.at(2116).marked);
        EXPECT_EQ(window.menu.items.at(2103).path, "Tone/Edit Value");
    });
}

} // namespace
