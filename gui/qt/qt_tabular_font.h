#pragma once

#include <QFont>

/// The font with digits of equal width, so that figures stand below each other. Where Qt can't ask a font for
/// them (before 6.7) it is left as it is: those of desktops have them from the start.
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
inline QFont WithTabularFigures(QFont font) {
    font.setFeature(QFont::Tag("tnum"), 1);
    return font;
}
#else
inline QFont WithTabularFigures(const QFont& font) {
    return font;
}
#endif
