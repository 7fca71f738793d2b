#pragma once

#include "app/desktop/product.h"
#include "app/window/command_ids.h"
#include "gui/control_layout.h"

/// The controls of the about box that send no command of another name.
enum AboutControl : int {
    AboutProduct = 101,
    AboutPurpose = 102,
    AboutLicence = 103,
    AboutCopyright = 104,
};

inline constexpr LControlLayout AboutDlgControls[] = {
    {AboutProduct, LControlKind::Text, ProductAndVersion, {20, 14, 380, 20}},
    {AboutPurpose, LControlKind::Text, "Generates, plays and saves test tones.", {20, 38, 380, 20}},
    {AboutLicence, LControlKind::Text, "Free software under the MIT licence.", {20, 72, 380, 20}},
    {AboutCopyright, LControlKind::Text, SONVIRE_COPYRIGHT, {20, 96, 380, 20}},
    {CommandWebSite, LControlKind::Link, "Sonvire on the Web", {20, 130, 180, 20}},
    {LCommandHelp, LControlKind::Link, "Sonvire Help", {220, 130, 180, 20}},
    {LCommandOk, LControlKind::Button, "OK", {300, 172, 100, 0}},
};

inline constexpr LDialogLayout AboutDlgLayout{"About Sonvire", 420, 210, AboutDlgControls};
