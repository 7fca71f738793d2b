#pragma once

#include "app/window/command_ids.h"
#include "gui/control_layout.h"

/// The controls of the about box that send no command of another name.
enum AboutControl : int {
    AboutProduct = 101,
    AboutPurpose = 102,
    AboutLicence = 103,
    AboutCopyright = 104,
    AboutVersion = 105,
    AboutPicture = 106,
};

inline constexpr LControlLayout AboutDlgControls[] = {
    {AboutPicture, LControlKind::Picture, "Sonvire's icon", {24, 24, 80, 80}},
    {AboutProduct, LControlKind::Heading, "Sonvire", {128, 22, 288, 28}},
    {AboutVersion, LControlKind::Hint, "Version " SONVIRE_VERSION, {128, 52, 288, 20}},
    {AboutPurpose, LControlKind::Text, "Generates, plays and saves test tones.", {128, 84, 288, 20}},
    {AboutLicence, LControlKind::Text, "Free software under the MIT licence.", {128, 106, 288, 20}},
    {AboutCopyright, LControlKind::Hint, SONVIRE_COPYRIGHT, {128, 132, 288, 20}},
    {CommandWebSite, LControlKind::Link, "Sonvire on the Web", {128, 164, 144, 20}},
    {LCommandHelp, LControlKind::Link, "Sonvire Help", {284, 164, 132, 20}},
    {LCommandOk, LControlKind::Button, "OK", {316, 204, 100, 0}},
};

inline constexpr LDialogLayout AboutDlgLayout{"About Sonvire", 440, 248, AboutDlgControls};
