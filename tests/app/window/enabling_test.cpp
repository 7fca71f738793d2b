#include "support/app_window.h"

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
    void ExpectMenu(const Ints& disabled, const Ints& marked) {
        EXPECT_EQ(Menu().With(&MemoryItem::enabled, false), disabled);
        EXPECT_EQ(Menu().With(&MemoryItem::marked, true), marked);
    }
    /// Tool bar items look as the menu entries that do the same, and those without one as the modes are.
    void ExpectToolBarsAsTheMenu() {
        for (const MemoryToolBar* bar : {toolkit->mainWindow->toolBar, toolkit->mainWindow->smallToolBar})
            for (const auto& [command, item] : bar->items)
                if (const auto same = Menu().items.find(command); same != Menu().items.end()) {
                    EXPECT_EQ(item.enabled, same->second.enabled) << command;
                    EXPECT_EQ(item.marked, same->second.marked) << command;
                }
        const MemoryToolBar& small = *toolkit->mainWindow->smallToolBar;
        EXPECT_EQ(small[122].enabled, Menu()[2109].enabled) << "stereo";
        EXPECT_EQ(small[122].marked, Menu()[2109].marked);
        EXPECT_EQ(small[117].marked, !Menu()[2104].marked) << "duration";
        EXPECT_EQ(small[117].enabled, !small[2118].marked) << "but the list's is its own";
    }
    const MemoryMenu& Menu() { return *toolkit->mainWindow->menu; }
};

TEST_F(Enabling, FollowsTheTone) {
    const Ints noRow = Span({{2101, 2103}}), noComponents = Span({{2106, 2107}, {2109, 2110}, {3001, 3016}});
    const Ints stopped = {102, 1115}, sine = {2104, 2108, 2111, 3001};
    struct {
        const char* name;
        Ints commands, disabled, marked;
    } const cases[] = {
        {"a continuous sine", {}, stopped, sine},
        {"no row selected", {Deselect}, stopped + noRow, sine},
        {"everything on", {2109, 2110, 2107, 2112, 3003}, stopped, {2107, 2109, 2110, 2112, 3003}},
        {"linear after logarithmic", {2107, 2106}, stopped, {2106, 2108, 2111, 3001}},
        {"loop of a continuous tone", {118}, stopped, {118, 2105, 2108, 2111, 3001}},
        {"loop on and off", {118, 118}, stopped, {2105, 2108, 2111, 3001}},
        {"continuous after a looping sweep", {2107, 118, 2104}, stopped, sine},
        {"noise forgets but its duration",
         {2109, 2110, 2107, 3016, 2116, SelectFirst},
         Ints{102} + noComponents,
         {2105, 2108, 2116, 3001}},
        {"noise, no row selected",
         {2107, 2116, Deselect},
         Ints{102} + noRow + noComponents,
         {2105, 2108, 2116, 3001}},
        {"endless noise", {2117, SelectFirst}, Ints{102} + noRow + noComponents, {2104, 2108, 2117, 3001}},
        {"sine again", {2109, 2117, 2111, SelectFirst}, stopped, sine},
        {"playing", {101}, {101, 1115}, sine},
        {"stopped again", {101, 102}, stopped, sine},
        {"ids that nothing has", {1114, 3017, 3000, 2119, 9999}, stopped, sine},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        Forget();
        Run([&](MemoryMainWindow&) {
            for (const int command : each.commands)
                if (command < 0)
                    List().Select(command == Deselect ? Ints{} : Ints{0});
                else
                    Send({command});
            ExpectMenu(each.disabled, each.marked);
            ExpectToolBarsAsTheMenu();
        });
    }
}

TEST_F(Enabling, ShowsAListAsOne) {
    WriteBytes(folder / "list.tdl", "200ms silence.\n");
    dialogs = {PressOk};
    Run(
        [&](MemoryMainWindow& window) {
            ExpectMenu(Ints{102} + Span({{2101, 2110}, {3001, 3016}}), {2105, 2108, 3001});
            EXPECT_TRUE((*window.smallToolBar)[2118].marked);
            ExpectToolBarsAsTheMenu();
            window.Choose(2113);
            ExpectMenu({102, 1115}, {2105, 2108, 2113, 3001}); // the first row is selected
            ExpectToolBarsAsTheMenu();
        },
        {folder / "list.tdl"});
}

TEST_F(Enabling, TogglesSwitchTheirModes) {
    const std::string frequency = "Sine 1 Frequency=1000.00Hz", duration = "Sine Duration=1000ms";
    const std::string left = "Sine 1 Left Frequency=1000.00Hz", right = "Sine 1 Right Frequency=1000.00Hz";
    struct {
        int pressed;
        Texts rows;
        Ints marked;
    } const steps[] = {
        {117, {frequency, duration}, {117, 2111}},
        {122, {left, right, duration}, {117, 122, 2111}},
        {122, {frequency, duration}, {117, 2111}},
        {117, {frequency}, {2111}},
        {2110, {frequency, "Sine 1 Relative Amplitude=0dB"}, {2110, 2111}},
        {2110, {frequency}, {2111}},
        {118, {frequency, duration}, {117, 118, 2111}},
        {2115, {"Impulse 1 Frequency=1000.00Hz", "Impulse Duration=1000ms"}, {117, 118, 2115}},
    };
    Run([&](MemoryMainWindow& window) {
        for (const auto& step : steps) {
            window.smallToolBar->Press(step.pressed);
            EXPECT_EQ(Rows(), step.rows);
            EXPECT_EQ(window.smallToolBar->With(&MemoryItem::marked, true), step.marked) << step.pressed;
        }
    });
}

TEST_F(Enabling, ThePopUpMenuIsTheToneMenu) {
    popupChoices = {2116, 2109, 0};
    Run([&](MemoryMainWindow&) {
        Send({6112});
        EXPECT_EQ(Rows(), Texts{"White Noise="});
        Send({6112});
        EXPECT_EQ(Rows(), Texts{"White Noise="}) << "noise is not stereo";
        EXPECT_EQ(toolkit->popup.items.size(), 33U);
        EXPECT_EQ(toolkit->popup[2103].path, "Edit Value...");
        EXPECT_TRUE(toolkit->popup[2116].marked);
        EXPECT_EQ(Menu()[2103].path, "Tone/Edit Value");
    });
}

} // namespace
