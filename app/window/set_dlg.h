#pragma once

#include "gui/dialog.h"

/// The play settings: whether playback begins when the program starts, by how much a step changes a
/// frequency, and the quality. It only reads and writes settings.
class SetDlg : public LDialog {
public:
    SetDlg();

protected:
    void InitDialog() override;
    void EnableControls() override;
    bool CmOk() override;
    void CmHelp() override;

private:
    void ShowQualities();
    bool StoreSemitones(const std::string& text);
    bool StoreFrequency(const std::string& text);
};

/// True where it was closed with OK.
bool OpenSettingsDialog(LWindow& parent);
