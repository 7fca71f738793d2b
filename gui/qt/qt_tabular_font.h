#pragma once

#include <QFont>

/// The font with digits of equal width, so that figures stand below each other. Where Qt can't ask a font for
/// them (before 6.7) it is left as it is: those of desktops have them from the start.
// NOLINTNEXTLINE(performance-unnecessary-value-param): changed from 6.7 on
inline QFont WithTabularFigures(QFont font) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
    font.setFeature(QFont::Tag("tnum"), 1);
#endif
    return font;
}
