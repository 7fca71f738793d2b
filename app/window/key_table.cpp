#include "app/window/command_ids.h"
#include "app/window/window_tables.h"

static constexpr LKeyMapEntry MainKeys[] = {
    {LKeyF1, 0, LCommandHelp},
    {LKeyNone, ' ', CommandPlay},
    {LKeyEscape, 0, CommandStop},
    {LKeyControl, 'o', CommandLoadTone},
    {LKeyControl, 's', CommandSave},
    {LKeyControl, 'z', CommandUndo},
    {LKeyControl | LKeyShift, 'z', CommandRedo},
    {LKeyControl, 'y', CommandRedo},
    {LKeyControl, 'm', CommandViewSound},
    {LKeyControl, '0', CommandResetZoom},
    {LKeyControl, 'w', CommandCloseWindow},
    {LKeyNone, '+', CommandIncrease},
    {LKeyNone, '=', CommandIncrease}, // where "+" needs Shift
    {LKeyKeypadPlus, 0, CommandIncrease},
    {LKeyNone, '-', CommandDecrease}, // also on the keypad
    {LKeyPageUp, 0, CommandIncreaseLarge},
    {LKeyPageDown, 0, CommandDecreaseLarge},
    {LKeyReturn, 0, CommandEditValue},
};

std::span<const LKeyMapEntry> GetMainKeys() {
    return MainKeys;
}
