#include "gui/tool_bar.h"

#include "gui/window_peer.h"

#include <algorithm>

void LToolBar::Build(std::unique_ptr<LToolBarPeer> toolBarPeer, std::span<const LToolBarItem> table,
                     LWindowEvents& window) {
    peer = std::move(toolBarPeer);
    items = table;
    events = &window;
    for (const LToolBarItem& item : items)
        peer->AddItem(item);
}

void LToolBar::Enable(int command, bool enabled) {
    if (peer)
        peer->Enable(command, enabled);
}

void LToolBar::EnableInsteadOf(int command, int other) {
    Enable(command, true);
    if (peer)
        peer->PassFocus(other, command);
    Enable(other, false);
}

void LToolBar::ShowKey(int command, const std::string& key) {
    for (const LToolBarItem& item : items)
        if (item.command == command)
            peer->SetToolTip(command, std::string(item.toolTip) + " (" + key + ")");
}

void LToolBar::SetState(int command, bool set) {
    states[command] = set;
    if (peer)
        peer->SetPressed(command, set);
}

bool LToolBar::GetState(int command) const {
    const auto found = states.find(command);
    return found != states.end() && found->second;
}

void LToolBar::SetRadio(int command) {
    const auto isItem = [command](const LToolBarItem& item) { return item.command == command; };
    const auto isRadio = [](const LToolBarItem& item) { return item.kind == LToolBarItemKind::Radio; };
    const auto item = std::find_if(items.begin(), items.end(), isItem);
    if (item == items.end() || !isRadio(*item))
        return;
    const auto before = std::find_if_not(std::make_reverse_iterator(item), items.rend(), isRadio);
    const auto after = std::find_if_not(item, items.end(), isRadio);
    for (auto each = before.base(); each != after; ++each)
        SetState(each->command, each->command == command);
}

void LToolBar::ItemUsed(int command) {
    for (const LToolBarItem& item : items) {
        if (item.command != command)
            continue;
        if (item.kind == LToolBarItemKind::Toggle)
            SetState(command, !GetState(command));
        if (item.kind == LToolBarItemKind::Radio)
            SetRadio(command);
    }
    events->ControlUsed(command);
}
