#include "tone/note_name.h"

#include <cmath>
#include <cstdio>

namespace {

constexpr const char* Names[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
constexpr int Octave = 12;
constexpr double LowestHz = 1; // below it nobody counts in notes
constexpr double HighestHz = 1e6;

} // namespace

std::string DescribeNote(double hz) {
    if (!(hz >= LowestHz && hz <= HighestHz))
        return {};
    const long cents = std::lround(100 * (A4Semitones + Octave * std::log2(hz / A4Hz)));
    const long note = std::lround(static_cast<double>(cents) / 100);
    const long octave = static_cast<long>(std::floor(static_cast<double>(note) / Octave));
    const long off = cents - 100 * note;
    char text[32];
    std::snprintf(text, sizeof text, off == 0 ? "%s%ld" : "%s%ld %+ld ct", Names[note - Octave * octave],
                  octave, off);
    return text;
}
