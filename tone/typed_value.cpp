#include "tone/typed_value.h"

#include "tone/note_name.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// What typesetters put for a minus sign and for blanks.
constexpr std::pair<std::string_view, std::string_view> Typographic[] = {
    {"\u2212", "-"}, {"\u00A0", ""}, {"\u2009", ""}, {"\u202F", ""}};

/// Without blanks, in small letters, with a point for the comma; empty where the comma may not be one.
std::string Simplify(std::string text) {
    for (const auto& [typed, meant] : Typographic)
        for (std::size_t at = text.find(typed); at != std::string::npos; at = text.find(typed))
            text.replace(at, typed.size(), meant);
    std::string simple;
    for (const char c : text)
        if (std::isspace(static_cast<unsigned char>(c)) == 0)
            simple += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const std::size_t comma = simple.find(',');
    if (comma == std::string::npos)
        return simple;
    simple[comma] = '.';
    const auto decimals =
        std::find_if_not(simple.begin() + static_cast<std::ptrdiff_t>(comma) + 1, simple.end(), IsDigit) -
        simple.begin() - static_cast<std::ptrdiff_t>(comma) - 1;
    return decimals == 3 ? std::string() : simple;
}

/// Takes the number that the text begins with, and a plus sign before it.
std::optional<double> TakeNumber(std::string_view& text) {
    std::string_view digits = text;
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    double value = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (failure != std::errc() || !std::isfinite(value) || (digits != text && digits.starts_with('-')))
        return {};
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

struct Unit {
    std::string_view name;
    double factor;
};

/// A number and one of these units.
template <std::size_t Count>
std::optional<double> ParseQuantity(std::string_view text, const Unit (&units)[Count]) {
    const std::optional<double> number = TakeNumber(text);
    for (const Unit& unit : units)
        if (number && text == unit.name)
            return *number * unit.factor;
    return {};
}

/// The semitones of a note's letter above C, and its sharp or flat.
std::optional<int> TakeNoteName(std::string_view& text) {
    constexpr std::string_view letters = "c d ef g a b";
    const std::size_t place =
        text.empty() || text.front() == ' ' ? std::string_view::npos : letters.find(text.front());
    if (place == std::string_view::npos)
        return {};
    text.remove_prefix(1);
    int semitone = static_cast<int>(place);
    for (const auto& [sign, change] : {std::pair{'#', 1}, {'b', -1}}) {
        if (text.starts_with(sign)) {
            text.remove_prefix(1);
            return semitone + change;
        }
    }
    return semitone;
}

std::optional<double> ParseNote(std::string_view text) {
    const std::optional<int> name = TakeNoteName(text);
    int octave = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), octave);
    if (!name || failure != std::errc() || std::abs(octave) > 20)
        return {};
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    double cents = 0;
    if (!text.empty()) {
        constexpr Unit units[] = {{"", 1}, {"c", 1}, {"ct", 1}, {"cent", 1}, {"cents", 1}};
        const bool isSigned = text.front() == '+' || text.front() == '-';
        const std::optional<double> off = ParseQuantity(text, units);
        if (!isSigned || !off)
            return {};
        cents = *off;
    }
    return A4Hz * std::exp2((12 * octave + *name - A4Semitones + cents / 100) / 12);
}

/// Hours, minutes and seconds, or the last two, with colons between them.
std::optional<double> ParseClock(std::string_view text) {
    double seconds = 0;
    for (int part = 0; part < 3; ++part) {
        const std::optional<double> number = TakeNumber(text);
        const bool isLast = text.empty();
        const bool isWhole = number && std::trunc(*number) == *number;
        if (!number || *number < 0 || (part > 0 && *number >= 60) || (!isLast && !isWhole))
            return {};
        seconds = 60 * seconds + *number;
        if (isLast)
            return part > 0 ? std::optional(1000 * seconds) : std::nullopt;
        if (!text.starts_with(':'))
            return {};
        text.remove_prefix(1);
    }
    return {};
}

} // namespace

std::optional<double> ParseFrequency(const std::string& text) {
    constexpr Unit units[] = {{"", 1}, {"hz", 1}, {"k", 1000}, {"khz", 1000}};
    const std::string simple = Simplify(text);
    const std::optional<double> hz = ParseQuantity(simple, units);
    return hz ? hz : ParseNote(simple);
}

std::optional<double> ParseDuration(const std::string& text) {
    constexpr Unit units[] = {{"", 1},         {"ms", 1},     {"s", 1000},     {"sec", 1000},
                              {"min", 60'000}, {"m", 60'000}, {"h", 3'600'000}};
    const std::string simple = Simplify(text);
    const std::optional<double> ms = ParseQuantity(simple, units);
    return ms ? ms : ParseClock(simple);
}

std::optional<double> ParseLevel(const std::string& text) {
    constexpr Unit units[] = {{"", 1}, {"db", 1}, {"dbfs", 1}};
    return ParseQuantity(Simplify(text), units);
}
