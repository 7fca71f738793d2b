#include "gui/control_layout.h"

#include <algorithm>

LRect PlaceControl(const LControlLayout& control, int extraWidth, int extraHeight) {
    const auto part = [&control](LGrowth growth, int extra) {
        return (control.growth & growth) != 0 ? extra : 0;
    };
    return {.x = control.rect.x + part(MoveRight, extraWidth),
            .y = control.rect.y + part(MoveDown, extraHeight),
            .width = control.rect.width + part(Widen, extraWidth),
            .height = control.rect.height + part(Heighten, extraHeight)};
}

bool CanGrow(const LDialogLayout& layout) {
    return std::any_of(layout.controls.begin(), layout.controls.end(),
                       [](const LControlLayout& control) { return control.growth != GrowNone; });
}
