#include "app/window/set_dlg.h"

#include "app/desktop/help_pages.h"
#include "app/quality.h"
#include "app/setting_names.h"
#include "app/window/set_dlg_layout.h"
#include "sys/desktop/message_box.h"
#include "sys/parse.h"

#include <cstdlib>

namespace {

constexpr int LeastSemitones = 1;
constexpr int MostSemitones = 12;

std::string Trimmed(const std::string& text) {
    constexpr const char* Blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(Blanks);
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

} // namespace

SetDlg::SetDlg() : LDialog(SetDlgLayout) {}

void SetDlg::InitDialog() {
    CheckButton(SetAutoplay, Setting::Autoplay.Get());
    SetRange(SetSemitones, LeastSemitones, MostSemitones);
    SetText(SetFrequency, Setting::ShownHz.Get());
    SetValue(SetSemitones, Setting::ShownSemitones.Get());
    const bool bySemitone = Setting::StepsBySemitone.Get();
    CheckButton(bySemitone ? SetBySemitone : SetByFrequency, true);
    if (bySemitone)
        SetValue(SetSemitones, Setting::StepSemitones.Get());
    else
        SetText(SetFrequency, Setting::StepHz.Get());
    SetToolTip(SetFrequency, "Frequency");
    SetToolTip(SetSemitones, "SemiTone");
    ShowQualities();
}

void SetDlg::ShowQualities() {
    std::vector<std::string> texts;
    for (const Quality& each : GetQualities())
        texts.emplace_back(each.text);
    SetChoices(SetQuality, texts);
    SetToolTip(SetQuality, "High quality plays at the output's own rate; its files have 24 bits");
    SetValue(SetQuality, static_cast<int>(&GetQuality() - GetQualities().data()));
}

void SetDlg::EnableControls() {
    const bool bySemitone = IsChecked(SetBySemitone);
    EnableControl(SetFrequency, !bySemitone);
    EnableControl(SetSemitones, bySemitone);
    EnableControl(SetSemitoneText, bySemitone);
}

bool SetDlg::CmOk() {
    Setting::Autoplay.Set(IsChecked(SetAutoplay));
    Setting::HighRate.Set(GetQualities()[static_cast<std::size_t>(GetValue(SetQuality))].savedRate);
    const std::string semitones = Trimmed(GetText(SetSemitoneText));
    const std::string frequency = Trimmed(GetText(SetFrequency));
    if (IsChecked(SetBySemitone) && !StoreSemitones(semitones))
        return false;
    if (IsChecked(SetByFrequency) && !StoreFrequency(frequency))
        return false;
    Setting::ShownSemitones.SetText(semitones);
    Setting::ShownHz.Set(frequency);
    return true;
}

bool SetDlg::StoreSemitones(const std::string& text) {
    const int semitones = ParseLeadingInt(text.c_str());
    if (semitones < LeastSemitones || semitones > MostSemitones) {
        LShowMessageBox("Play Settings", "Please enter valid SemiTone value. It must be between 1 and 12.");
        return false;
    }
    Setting::StepsBySemitone.Set(true);
    Setting::StepSemitones.Set(semitones);
    return true;
}

bool SetDlg::StoreFrequency(const std::string& text) {
    if (!(std::strtod(text.c_str(), nullptr) > 0.0)) {
        LShowMessageBox("Play Settings", "Please enter Frequency value");
        return false;
    }
    Setting::StepsBySemitone.Set(false);
    Setting::StepHz.Set(text);
    return true;
}

void SetDlg::CmHelp() {
    OpenHelpPage(*this, HelpPage::Settings);
}

bool OpenSettingsDialog(LWindow& parent) {
    SetDlg dialog;
    return dialog.RunModal(parent);
}
