#include "gui/dialog.h"

#include "gui/toolkit.h"

bool LDialog::RunModal(LWindow& parent) {
    Create(parent);
    const bool ok = peer->RunModal();
    Destroy();
    return ok;
}

void LDialog::Create(LWindow& parent) {
    toolkit = &parent.GetToolkit();
    peer = toolkit->CreateDialog(layout, *this);
    for (const LControlLayout& control : layout.controls)
        peer->Controls().Add(control);
    SetCaption(layout.title);
    InitDialog();
    EnableControls();
}

void LDialog::Destroy() {
    DestroyDialog();
    peer.reset();
}

void LDialog::SetKeys(std::span<const LKeyMapEntry> table) {
    keys = table;
    ShowKeys(keys, [this](int command, const std::string& key) {
        for (const LControlLayout& control : layout.controls)
            if (control.id == command)
                SetToolTip(command, key);
    });
}

bool LDialog::KeyPressed(const LKeyPress& key) {
    const LKeyMapEntry* entry = FindKey(keys, key);
    if (entry)
        ControlUsed(entry->command);
    return entry != nullptr;
}

void LDialog::Close(int ok) {
    peer->End(ok != 0);
}

void LDialog::LayoutControls(int width, int height) {
    for (const LControlLayout& control : layout.controls)
        peer->Controls().Place(control.id,
                               PlaceControl(control, width - layout.width, height - layout.height));
}
