#pragma once

#include "gui/dialog.h"

/// What the program is, whose it is, and where there is more about it.
class AboutDlg : public LDialog {
public:
    AboutDlg();

    void Command(int command) override;

protected:
    void InitDialog() override;
    void CmHelp() override;
};
