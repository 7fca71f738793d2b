#include "gui/main_window.h"

#include "gui/toolkit.h"

#include <utility>

namespace {

/// What standard commands have in every program.
constexpr LKeyMapEntry StandardKeys[] = {{LKeyControl, 'q', LCommandQuit}};

} // namespace

LMainWindow::LMainWindow(LToolkit& windowToolkit, int count, const char* const* argv)
    : argumentCount(count),
      arguments(argv) {
    toolkit = &windowToolkit;
}

LMainWindow::~LMainWindow() = default;

void LMainWindow::Run() {
    peer = toolkit->CreateMainWindow(*this);
    InitDialog();
    peer->SetGeometry(ReadGeometry());
    standing = true;
    EvStarted();
    OpenDocuments(std::exchange(waitingDocuments, {}));
    peer->Show();
    EnableControls();
    EvRunArguments(arguments, argumentCount);
    if (standing)
        toolkit->Run();
    Close(0);
    DestroyDialog();
    menu.reset();
    peer.reset();
}

void LMainWindow::OpenDocuments(const std::vector<std::string>& paths) {
    if (!standing) {
        if (waitingDocuments.empty())
            waitingDocuments = paths;
        return;
    }
    CmLoadFiles(paths);
}

void LMainWindow::OpenArgument(const std::string& path) {
    const char* const given[] = {arguments[0], path.c_str()};
    if (standing)
        EvRunArguments(given, 2);
}

void LMainWindow::Activate() {
    if (standing)
        peer->Raise();
}

void LMainWindow::Close(int /*ok*/) {
    if (!std::exchange(standing, false))
        return;
    WriteGeometry(peer->GetGeometry());
    peer->Hide();
    toolkit->Quit();
}

void LMainWindow::ControlUsed(int id) {
    if (id == LCommandQuit)
        CloseAsked();
    else
        LWindow::ControlUsed(id);
}

bool LMainWindow::KeyPressed(const LKeyPress& key) {
    if (keys && keys->HandleKey(key))
        return true;
    const LKeyMapEntry* standard = FindKey(StandardKeys, key);
    if (standard && !key.repeated)
        ControlUsed(standard->command);
    return standard != nullptr;
}

void LMainWindow::SetMenu(std::span<const LMenuEntry> entries) {
    menu = std::make_unique<LMenu>(peer->CreateMenuBar(), entries);
    ShowKeysOf(StandardKeys);
}

void LMainWindow::SetToolBar(std::span<const LToolBarItem> items) {
    mainToolBar.Build(peer->CreateToolBar(mainToolBar.GetEvents()), items, *this);
    toolBars.push_back(&mainToolBar);
}

void LMainWindow::SetToolBarSmallIcons(int control, LToolBar& toolBar, std::span<const LToolBarItem> items) {
    toolBar.Build(peer->CreateSmallToolBar(control, toolBar.GetEvents()), items, *this);
    toolBars.push_back(&toolBar);
}

void LMainWindow::SetStatusBar(std::span<const LStatusItem> items) {
    for (const LStatusItem& item : items)
        peer->AddStatusItem(item);
}

void LMainWindow::SetKeys(LKeyHandler& handler, std::span<const LKeyMapEntry> table) {
    keys = &handler;
    handler.SetKeyMap(table);
    ShowKeysOf(table);
}

void LMainWindow::ShowKeysOf(std::span<const LKeyMapEntry> table) {
    ShowKeys(table, [this](int command, const std::string& key) {
        if (menu)
            menu->SetKeyText(command, key);
        for (LToolBar* bar : toolBars)
            bar->ShowKey(command, key);
    });
}
