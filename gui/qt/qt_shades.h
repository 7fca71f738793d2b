#pragma once

#include <QPalette>

/// True of a theme whose `role` has light things on dark ones.
inline bool IsDark(const QPalette& palette, QPalette::ColorRole role = QPalette::Window) {
    return palette.color(QPalette::Active, role).lightness() < 128;
}

inline QColor WithAlpha(QColor colour, float alpha) {
    colour.setAlphaF(alpha);
    return colour;
}

/// The colour of texts, fainter. A theme's own for such texts may be one of another theme.
inline QColor Faint(const QPalette& palette, float alpha) {
    return WithAlpha(palette.color(QPalette::WindowText), alpha);
}
