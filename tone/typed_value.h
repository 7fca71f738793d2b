#pragma once

#include <optional>
#include <string>

// Values as people type them. Blanks may stand anywhere, and letters are small or large. The decimal point
// may be a comma; one before three digits could as well group them, and is not taken. Nothing where the text
// is not such a value, or not a finite one.

/// In Hz: "440", "1.5k", "1.5kHz", "1 000 Hz"; or a note of the equal temperament on A4 = 440 Hz, with cents
/// where it is off by some: "A4", "C#5", "Eb3 +12 ct", "F-1-50".
std::optional<double> ParseFrequency(const std::string& text);

/// In ms: "500", "500ms", "0.5 s", "2min", "1h"; or a clock's: "1:30", "0:00.25", "1:00:00".
std::optional<double> ParseDuration(const std::string& text);

/// In dB: "-3", "-3 dB", "-3 dBFS".
std::optional<double> ParseLevel(const std::string& text);
