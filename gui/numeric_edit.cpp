#include "gui/numeric_edit.h"

namespace {

enum : int { Prompt = 101, Input = 102 };

constexpr LControlLayout Controls[] = {
    {Prompt, LControlKind::Text, "", {20, 14, 360, 20}},
    {Input, LControlKind::Edit, "", {20, 42, 360, 24}},
    {LCommandCancel, LControlKind::Button, "Cancel", {166, 86, 100, 0}},
    {LCommandOk, LControlKind::Button, "OK", {280, 86, 100, 0}},
};
constexpr LDialogLayout Layout{"", 400, 124, Controls};

} // namespace

LNumericEdit::LNumericEdit(std::string boxTitle, std::string boxPrompt, std::string initialText)
    : LDialog(Layout),
      title(std::move(boxTitle)),
      prompt(std::move(boxPrompt)),
      text(std::move(initialText)) {}

void LNumericEdit::InitDialog() {
    SetCaption(title);
    SetText(Prompt, prompt);
    SetText(Input, text);
    SetToolTip(Input, prompt);
    SetFocus(Input);
}

bool LNumericEdit::CmOk() {
    text = GetText(Input);
    return true;
}
