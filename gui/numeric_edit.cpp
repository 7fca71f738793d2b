#include "gui/numeric_edit.h"

namespace {

enum : int { Prompt = 101, Input = 102, Reading = 103, Range = 104, Place = 105, Rest = 106 };

constexpr LControlLayout Controls[] = {
    {Prompt, LControlKind::Text, "", {20, 14, 380, 20}},
    {Input, LControlKind::Edit, "", {20, 42, 380, 24}},
    {Place, LControlKind::Text, "", {342, 14, 58, 20}},
    {Reading, LControlKind::Text, "", {20, 72, 380, 20}},
    {Range, LControlKind::Text, "", {20, 94, 380, 20}},
    {LCommandCancel, LControlKind::Button, "Cancel", {186, 132, 100, 0}},
    {LCommandOk, LControlKind::Button, "OK", {300, 132, 100, 0}},
    {Rest, LControlKind::CheckBox, "Same for the rest", {20, 134, 160, 20}},
};
constexpr std::span<const LControlLayout> AllControls = Controls;
constexpr LDialogLayout WithRest{"", 420, 172, AllControls};
constexpr LDialogLayout WithoutRest{"", 420, 172, AllControls.first(std::size(Controls) - 1)};

} // namespace

LNumericEdit::LNumericEdit(std::string boxTitle, std::string boxPrompt, std::string initialText,
                           LEntryRules entryRules)
    : LDialog(entryRules.offersRest ? WithRest : WithoutRest),
      title(std::move(boxTitle)),
      prompt(std::move(boxPrompt)),
      text(std::move(initialText)),
      rules(std::move(entryRules)) {}

void LNumericEdit::InitDialog() {
    SetCaption(title);
    SetText(Prompt, prompt);
    SetText(Place, rules.place);
    SetText(Range, rules.input);
    SetText(Input, text);
    SetToolTip(Input, prompt);
    SetFocus(Input);
}

void LNumericEdit::EnableControls() {
    if (!rules.read)
        return;
    const LEntryReading reading = rules.read(GetText(Input));
    SetText(Reading, reading.words);
    MarkWrong(Input, !reading.isTaken && !GetText(Input).empty());
    EnableControl(LCommandOk, reading.isTaken);
}

void LNumericEdit::ValueStepped(int /*control*/, int steps) {
    if (!rules.step || !rules.read(GetText(Input)).isTaken)
        return;
    SetText(Input, rules.step(GetText(Input), steps));
    SetFocus(Input);
    EnableControls();
}

bool LNumericEdit::CmOk() {
    text = GetText(Input);
    forTheRest = rules.offersRest && IsChecked(Rest);
    return true;
}
