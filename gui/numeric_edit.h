#pragma once

#include "gui/dialog.h"

#include <functional>

/// What a box tells of the text in it while it is typed.
struct LEntryReading {
    bool isTaken = true; ///< else OK can't be pressed
    std::string words;   ///< what is made of it, or why it can't be
};

/// What makes a box of a text one of a value; each may be left out.
struct LEntryRules {
    std::string place{}; ///< of the box among others that follow each other, such as "3 of 13"
    std::string input{}; ///< the unit, and what can be typed
    std::function<LEntryReading(const std::string& text)> read;
    /// The text that is so many steps above this one, for the arrow keys and the wheel.
    std::function<std::string(const std::string& text, int steps)> step;
    bool offersRest = false; ///< more boxes are to follow, for which the text may be meant as well
};

/// A box that asks for one text, such as a number with its unit. The text that it starts with is selected, so
/// that typing replaces it; Return is OK, Escape is Cancel.
class LNumericEdit : public LDialog {
public:
    LNumericEdit(std::string boxTitle, std::string boxPrompt, std::string initialText,
                 LEntryRules entryRules = {});

    /// The text as it stood when the box was closed with OK; until then the initial one.
    const std::string& GetEntry() const { return text; }
    /// True where the user wants it for the boxes that would follow, too.
    bool IsForTheRest() const { return forTheRest; }

protected:
    void InitDialog() override;
    /// After every change of the text.
    void EnableControls() override;
    void ValueStepped(int control, int steps) override;
    bool CmOk() override;

private:
    std::string title;
    std::string prompt;
    std::string text;
    LEntryRules rules;
    bool forTheRest = false;
};
