#include "app/list_editor/silence_box.h"

#include "gui/numeric_edit.h"
#include "tone/tone_list_file.h"
#include "tone/typed_value.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int StepMs = 100;

bool IsPlainNumber(const std::string& text) {
    return text.find_first_not_of("0123456789.") == std::string::npos;
}

/// The number that stands in the entry; empty where the text is no length. A plain number stays as it is
/// typed, of which whole milliseconds play.
std::string ReadLength(const std::string& text) {
    const std::optional<double> ms = ParseDuration(text);
    if (!ms || *ms < 0 || *ms > INT_MAX)
        return {};
    return IsPlainNumber(text) ? text : std::to_string(std::llround(*ms));
}

long long ToMs(const std::string& length) {
    return std::atoll(length.c_str());
}

LEntryReading Read(const std::string& text) {
    const std::string length = ReadLength(text);
    if (text.empty())
        return {.isTaken = false, .words = ""};
    if (length.empty())
        return {.isTaken = false, .words = "Duration should be specified as a numeric value."};
    return {.words = "= " + std::to_string(ToMs(length)) + "ms"};
}

std::string Step(const std::string& text, int steps) {
    return std::to_string(std::max(0LL, ToMs(ReadLength(text)) + steps * StepMs));
}

} // namespace

std::optional<std::string> AskForSilence(LWindow& parent, const std::string& entry) {
    const std::string length = entry.substr(0, entry.find(SilenceSuffix));
    LNumericEdit box(entry.empty() ? "Add silence to list" : "Edit silence",
                     "Please specify the length of silence in milliseconds:", length,
                     {.input = "ms; also 0.5 s, 1:30, 2min, 1h", .read = Read, .step = Step});
    if (!box.RunModal(parent))
        return {};
    const std::string asked = ReadLength(box.GetEntry()) + SilenceSuffix;
    return asked == entry ? std::nullopt : std::optional(asked);
}
