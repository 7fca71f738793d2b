#pragma once

#include "gui/control_layout.h"

/// The controls of the play settings.
enum SetControl : int {
    SetGeneral = 101,
    SetAutoplay = 102,
    SetInterval = 103,
    SetByFrequency = 104,
    SetFrequency = 105,
    SetHz = 106,
    SetBySemitone = 107,
    SetSemitones = 108,
    SetSemitoneText = 109,
    SetSound = 110,
    SetQualityText = 111,
    SetQuality = 112,
};

inline constexpr LControlLayout SetDlgControls[] = {
    {SetGeneral, LControlKind::Group, "General", {20, 14, 496, 64}},
    {SetAutoplay,
     LControlKind::CheckBox,
     "Automatically start tone playback when Sonvire runs",
     {32, 48, 472, 20}},
    {SetInterval, LControlKind::Group, "Tone Interval", {20, 88, 496, 102}},
    {SetByFrequency, LControlKind::Radio, "Frequency", {32, 122, 328, 20}},
    {SetFrequency, LControlKind::Edit, "", {369, 122, 58, 20}},
    {SetHz, LControlKind::Text, "Hz", {436, 122, 68, 20}},
    {SetBySemitone, LControlKind::Radio, "SemiTone", {32, 154, 328, 20}},
    {SetSemitones, LControlKind::NumberEdit, "", {369, 154, 58, 20}},
    {SetSemitoneText, LControlKind::NumberText, "", {}},
    {SetSound, LControlKind::Group, "Sound", {20, 200, 496, 64}},
    {SetQualityText, LControlKind::Text, "Quality", {32, 234, 160, 20}},
    {SetQuality, LControlKind::Chooser, "", {200, 234, 304, 20}},
    {LCommandHelp, LControlKind::Button, "Help", {20, 274, 100, 0}},
    {LCommandCancel, LControlKind::Button, "Cancel", {304, 274, 100, 0}},
    {LCommandOk, LControlKind::Button, "OK", {418, 274, 100, 0}},
};

inline constexpr LDialogLayout SetDlgLayout{"Play Settings", 540, 310, SetDlgControls};
