#include "gui/menu.h"

#include <cstdlib>

namespace {

void AddEntry(LMenuPeer& menu, const LMenuEntry& entry) {
    if (entry.id == 0)
        menu.AddSeparator();
    else if (entry.id == -1 && entry.text)
        menu.OpenSubmenu(entry.text);
    else if (entry.id == -1)
        menu.CloseSubmenu();
    else
        menu.AddItem(std::abs(entry.id), entry.text);
}

} // namespace

LMenu::LMenu(std::unique_ptr<LMenuPeer> menuPeer, std::span<const LMenuEntry> entries)
    : peer(std::move(menuPeer)) {
    for (const LMenuEntry& entry : entries) {
        AddEntry(*peer, entry);
        if (entry.id < -1)
            peer->SetCheck(-entry.id, false);
    }
}

void LMenu::SetText(int id, const std::string& text) {
    peer->SetText(id, text);
    peer->Enable(id, !text.empty());
}

void LMenu::EnableRange(int first, int last, bool enabled) {
    for (int id = first; id <= last; ++id)
        Enable(id, enabled);
}
