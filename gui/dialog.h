#pragma once

#include "gui/window.h"

#include <memory>

/// A dialog over another window, built from its layout table and modal to the whole application. It exists on
/// the screen only while `RunModal` runs.
class LDialog : public LWindow {
public:
    /// The layout must outlive the dialog.
    explicit LDialog(const LDialogLayout& dialogLayout) : layout(dialogLayout) {}

    /// Runs the dialog; true where it was closed with OK.
    bool RunModal(LWindow& parent);
    /// Without commands of its own a dialog only follows its controls.
    void Command(int /*command*/) override { EnableControls(); }

protected:
    /// Keys that are commands here: in a list before it has a use of its own for them, elsewhere only those
    /// with Ctrl. Buttons of the same commands show them. The table must outlive the dialog.
    void SetKeys(std::span<const LKeyMapEntry> table);
    bool KeyPressed(const LKeyPress& key) override;
    void CmCancel() override { Close(0); }
    void CloseAsked() override { CmCancel(); }
    void Close(int ok) override;
    void LayoutControls(int width, int height) override;
    LWindowPeer* GetPeer() const override { return peer.get(); }

    /// Both ends of the time on the screen.
    void Create(LWindow& parent);
    void Destroy();

    const LDialogLayout& layout;
    std::unique_ptr<LDialogPeer> peer;

private:
    std::span<const LKeyMapEntry> keys;
};
