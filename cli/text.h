#pragma once

#include "tone/typed_value.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <optional>
#include <string>
#include <vector>

std::string ToLower(std::string text);

/// The parts of a list such as 440,550,660; none for an empty text.
std::vector<std::string> SplitAtCommas(const std::string& text);

/// Refuses what is not a plain decimal number of this range (other notations read as octal or hexadecimal).
CLI::Validator DecimalIn(int lowest, int highest);

/// A kind of value that is typed with or without its unit.
struct TypedKind {
    std::optional<double> (*parse)(const std::string& text);
    const char* unit;     ///< what it is counted in
    const char* examples; ///< how it may be written
};
inline constexpr TypedKind Frequencies = {ParseFrequency, "hertz", "440, 1.5k, 1.5kHz and A4"};
inline constexpr TypedKind Rates = {ParseFrequency, "hertz", "44100, 44.1k and 48kHz"};
inline constexpr TypedKind Durations = {ParseDuration, "milliseconds", "500, 500ms, 5s and 1:30"};
inline constexpr TypedKind Levels = {ParseLevel, "decibels", "-3 and -3dB"};

/// Why `text` is none of them.
std::string ExplainNone(const TypedKind& kind, const std::string& text);

/// Refuses what does not come to a whole number of the kind's unit in this range, and gives that number to
/// the option.
CLI::Validator WholeIn(const TypedKind& kind, int lowest, int highest);
