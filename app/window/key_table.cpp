#include "app/window/command_ids.h"
#include "app/window/window_tables.h"

static constexpr LKeyMapEntry MainKeys[] = {
    {LKeyF1, 0, LCommandHelp},
    {LKeyNone, ' ', CommandPlay},
    {LKeyEscape, 0, CommandStop},
    {LKeyControl, 's', CommandSave},
    {LKeyControl, 'w', CommandCloseWindow},
    {LKeyKeypadPlus, 0, CommandIncrease},
    {LKeyNone, '-', CommandDecrease},
    {LKeyPageUp, 0, CommandIncreaseLarge},
    {LKeyPageDown, 0, CommandDecreaseLarge},
    {LKeyReturn, 0, CommandEditValue},
};

std::span<const LKeyMapEntry> GetMainKeys() {
    return MainKeys;
}
