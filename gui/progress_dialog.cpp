#include "gui/progress_dialog.h"

#include "gui/toolkit.h"
#include "sys/process_result.h"

namespace {

constexpr LControlLayout Controls[] = {
    {ProgressTitle, LControlKind::Text, "", {20, 14, 360, 20}},
    {ProgressStatus, LControlKind::Text, "Please wait...", {20, 40, 360, 20}},
    {ProgressBar, LControlKind::Progress, "", {20, 70, 360, 20}},
    {LCommandCancel, LControlKind::Button, "Cancel", {280, 108, 100, 0}},
};
constexpr LDialogLayout Layout{"", 400, 146, Controls};

} // namespace

LProgressDialog::LProgressDialog(const char* jobTitle) : LDialog(Layout), title(jobTitle) {}

int LProgressDialog::Open(LWindow& parent) {
    Create(parent);
    stop = false;
    peer->ShowModal();
    const int result = MainFunction();
    Destroy();
    return result;
}

bool LProgressDialog::IsToStop() const {
    GetToolkit().DispatchPending();
    return stop;
}

void LProgressDialog::InitDialog() {
    SetCaption(title);
    SetText(ProgressTitle, title);
    SetName(ProgressBar, title);
}

void LProgressDialog::Close(int /*ok*/) {
    stop = true;
}
