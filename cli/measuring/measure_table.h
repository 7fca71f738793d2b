#pragma once

#include "cli/measuring/measure_figures.h"

/// The figures of the channels as a table, of four columns at most side by side: a figure a line, under the
/// title of its group. What no channel has is left out, and so are the tones where there are several.
std::string WriteFigureTable(const MeasuredSound& sound);

/// Figures of the sound as a whole, a line each; of what may be lost, where there is something. Empty where
/// the sound has none of them.
std::string WriteSoundFigures(const MeasuredSound& sound, MeasuredFigure::Group group);

/// Fills up with blanks before a text.
std::string PadLeft(const std::string& text, std::size_t width);
