#pragma once

#include "gui/dialog.h"

/// A box that asks for one text, such as a number with its unit. The text that it starts with is selected, so
/// that typing replaces it; Return is OK, Escape is Cancel.
class LNumericEdit : public LDialog {
public:
    LNumericEdit(std::string boxTitle, std::string boxPrompt, std::string initialText);

    /// The text as it stood when the box was closed with OK; until then the initial one.
    const std::string& GetEntry() const { return text; }

protected:
    void InitDialog() override;
    bool CmOk() override;

private:
    std::string title;
    std::string prompt;
    std::string text;
};
