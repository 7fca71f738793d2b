#include "cli/measuring/measure_table.h"

#include "cli/report_parts.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace {

using Group = MeasuredFigure::Group;

constexpr std::size_t LabelWidth = 24, CellWidth = 12, ColumnsAbreast = 4;

std::string PadRight(const std::string& text, std::size_t width) {
    return text + std::string(width - std::min(width, text.size()), ' ');
}

std::string EndLine(std::string line) {
    return line.erase(line.find_last_not_of(' ') + 1) + "\n";
}

/// A label, cells, and their unit.
std::string Row(const std::string& label, const std::vector<std::string>& cells, const std::string& unit) {
    std::string line = PadRight(label, LabelWidth);
    for (const std::string& each : cells)
        line += PadLeft(each, CellWidth);
    return EndLine(line + "  " + unit);
}

/// The groups of figures, of columns that stand side by side. What none of them has is left out.
class FigureTable {
public:
    FigureTable(const MeasuredSound& measured, std::span<const MeasuredColumn> shown)
        : sound(measured),
          columns(shown) {}

    std::string Write() {
        WriteGroup(Group::Levels, "Levels");
        WriteGroup(Group::Faults, "Faults");
        if (std::any_of(columns.begin(), columns.end(),
                        [](const auto& each) { return !each.figures.tones.isSteady; }))
            WriteGroup(Group::Tones, "Tones");
        if (sound.CountTones() == 1) // several are listed
            WriteGroup(Group::Tone, "Tone");
        const bool isSum = sound.CountTones() > 1;
        WriteGroup(Group::Distortion, isSum ? "Of the strongest tone" : "Distortion and noise");
        if (isSum)
            WriteGroup(Group::Residual, "Of all tones");
        return text;
    }

private:
    void WriteGroup(Group group, const std::string& title) {
        std::string rows;
        for (const MeasuredFigure& each : GetMeasuredFigures())
            if (each.group == group)
                rows += WriteFigure(each);
        std::vector<std::string> titles;
        for (const MeasuredColumn& each : columns)
            titles.push_back(IsShown(each, group) ? each.title : "");
        if (!rows.empty())
            text += "\n" + Row(title, titles, "") + rows;
    }

    static bool IsShown(const MeasuredColumn& column, Group group) {
        return !column.isWhole || MeasuredFigure::HasWhole(group);
    }

    std::string WriteFigure(const MeasuredFigure& figure) const {
        std::vector<std::string> cells, times;
        const bool isTime = figure.unit == std::string_view("frame");
        bool isFound = figure.group == Group::Levels;
        for (const MeasuredColumn& each : columns) {
            const auto value = figure.ofChannel(each.figures);
            isFound |= value.has_value();
            cells.push_back(IsShown(each, figure.group) ? figure.Format(value) : "");
            times.push_back(isTime && value ? FormatClock(sound.GetMilliseconds(std::llround(*value))) : "");
        }
        if (!isFound)
            return {};
        return Row(figure.label, cells, figure.unit) + (isTime ? Row("", times, "min:s") : "");
    }

    const MeasuredSound& sound;
    std::span<const MeasuredColumn> columns;
    std::string text;
};

} // namespace

std::string WriteFigureTable(const MeasuredSound& sound) {
    std::vector<MeasuredColumn> columns = ListChannels(sound);
    if (columns.size() > 1)
        columns.push_back(MakeWhole(sound));
    std::string text;
    for (std::span<const MeasuredColumn> left = columns; !left.empty();
         left = left.subspan(std::min(left.size(), ColumnsAbreast)))
        text += FigureTable(sound, left.first(std::min(left.size(), ColumnsAbreast))).Write();
    return text;
}

std::string WriteSoundFigures(const MeasuredSound& sound, Group group) {
    std::string text;
    bool isFound = false;
    for (const MeasuredFigure& each : GetMeasuredFigures()) {
        if (each.group != group)
            continue;
        const MeasuredFigure::Value value = each.ofSound(sound);
        isFound |= value.has_value();
        if (group != Group::Losses || value > 0)
            text += Row(each.label, {each.Format(value)}, each.unit);
    }
    return isFound ? text : "";
}

std::string PadLeft(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}
