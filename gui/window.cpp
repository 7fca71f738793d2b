#include "gui/window.h"

LControlsPeer& LWindow::GetControls() const {
    return GetPeer()->Controls();
}

void LWindow::SetCaption(const std::string& caption) {
    GetPeer()->SetCaption(caption);
}

void LWindow::SetDocument(const LWindowDocument& document) {
    GetPeer()->SetDocument(document);
}

void LWindow::SetText(int control, const std::string& text) {
    GetControls().SetText(control, text);
}

std::string LWindow::GetText(int control) const {
    return GetControls().GetText(control);
}

void LWindow::EnableControl(int control, bool enabled) {
    GetControls().Enable(control, enabled);
}

void LWindow::SetRange(int control, int least, int most) {
    GetControls().SetRange(control, least, most);
}

void LWindow::SetValue(int control, int value) {
    GetControls().SetValue(control, value);
}

int LWindow::GetValue(int control) const {
    return GetControls().GetValue(control);
}

bool LWindow::IsHeld(int control) const {
    return GetControls().IsHeld(control);
}

void LWindow::PBSetProgress(int control, double fraction) {
    SetValue(control, static_cast<int>(fraction * 100));
}

void LWindow::SetChoices(int control, const std::vector<std::string>& choices) {
    GetControls().SetChoices(control, choices);
}

void LWindow::SetLevels(int control, const LMeterLevels& levels) {
    GetControls().SetLevels(control, levels);
}

void LWindow::SetValueText(int control, const std::string& text) {
    GetControls().SetValueText(control, text);
}

void LWindow::SetFocus(int control) {
    GetControls().SetFocus(control);
}

void LWindow::MarkWrong(int control, bool wrong) {
    GetControls().MarkWrong(control, wrong);
}

void LWindow::SetToolTip(int control, const std::string& text) {
    GetControls().SetToolTip(control, text);
}

void LWindow::SetName(int control, const std::string& name) {
    GetControls().SetName(control, name);
}

void LWindow::ControlUsed(int id) {
    switch (id) {
    case LCommandOk:
        if (CmOk())
            Close(1);
        break;
    case LCommandCancel:
        CmCancel();
        break;
    case LCommandHelp:
        CmHelp();
        break;
    default:
        Command(id);
    }
}
