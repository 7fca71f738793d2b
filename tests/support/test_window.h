#pragma once

#include "gui/list_view.h"
#include "gui/main_window.h"

#include <functional>

using Ints = std::vector<int>;
using Texts = std::vector<std::string>;

enum : int { List = 110, Selection = 110, DoubleClick = 6111, RightClick = 6112, RowsMoved = 6113 };

/// A main window whose work is given by each test.
class TestWindow : public LMainWindow, public LKeyHandler {
public:
    explicit TestWindow(LToolkit& windowToolkit) : LMainWindow(windowToolkit, 2, Arguments) {}

    std::function<void()> init = [] {};
    std::function<void(int)> onCommand = [](int) {};
    Ints commands;
    Texts log;
    std::unique_ptr<LListView> list;
    LToolBar small;

    using LMainWindow::GetMenu;
    using LMainWindow::SetKeys;
    using LMainWindow::SetMenu;
    using LMainWindow::SetStatusBar;
    using LMainWindow::SetToolBarSmallIcons;

    void MakeList(int rows) {
        GetControls().Add({List, LControlKind::List, "", {}});
        list = std::make_unique<LListView>(*this, List);
        list->BindCommands({Selection, DoubleClick, RightClick, RowsMoved});
        for (int row = 0; row < rows; ++row)
            list->AppendRow(std::string(1, static_cast<char>('a' + row)), static_cast<std::uint32_t>(row));
    }
    std::string ListTexts() const {
        std::string all;
        for (int row = 0; row < list->GetCount(); ++row)
            all += list->GetText(row, 0);
        return all;
    }

private:
    static constexpr const char* Arguments[] = {"program", "file.tdf"};

    void InitDialog() override {
        log.emplace_back("init");
        init();
    }
    void DestroyDialog() override { log.emplace_back("destroy"); }
    void EnableControls() override { log.emplace_back("enable"); }
    void CmHelp() override { commands.push_back(-LCommandHelp); }
    void CmLoadFiles(const std::vector<std::string>& paths) override {
        for (const std::string& path : paths)
            log.push_back("load " + path);
    }
    void EvRunArguments(const char* const* arguments, int count) override {
        log.push_back(std::string("run ") + arguments[count - 1]);
    }
    LWindowGeometry ReadGeometry() override { return {.x = 10, .y = 20, .width = 300, .height = 400}; }
    void WriteGeometry(const LWindowGeometry& geometry) override {
        log.push_back("geometry " + std::to_string(geometry.width));
    }
    void LayoutControls(int width, int height) override {
        GetControls().Place(200, {0, 0, width, 30});
        GetControls().Place(List, {0, 30, width, height - 30});
    }
    void EvDropFilesOnList(int /*control*/, const Texts& paths, int before) override {
        log.push_back("drop " + paths.at(0) + " before " + std::to_string(before));
    }
    void EvDropFiles(const Texts& paths) override { log.push_back("drop " + paths.at(0)); }
    void EvKeyDown(unsigned command) override { ControlUsed(static_cast<int>(command)); }
    void Command(int command) override {
        commands.push_back(command);
        onCommand(command);
    }
};
