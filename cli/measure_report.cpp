#include "cli/measure_report.h"

#include "cli/refusal.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace {

using Group = MeasuredFigure::Group;

constexpr std::size_t LabelWidth = 24, CellWidth = 12, ColumnsAbreast = 4;

std::string PadLeft(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string PadRight(const std::string& text, std::size_t width) {
    return text + std::string(width - std::min(width, text.size()), ' ');
}

std::string NameChannels(std::size_t count) {
    return count == 1 ? "mono" : count == 2 ? "stereo" : std::to_string(count) + " channels";
}

std::string NameSamples(int bits) {
    return bits == 0 ? "floating point" : std::to_string(bits) + " bits";
}

std::string Head(const MeasuredSound& sound) {
    return Printable(sound.name) + "\n" + std::to_string(sound.rate) + " Hz, " + NameSamples(sound.bits) +
           ", " + NameChannels(sound.figures.channels.size()) + ", " + std::to_string(sound.GetFrames()) +
           " frames, " + FormatClock(sound.GetMilliseconds(sound.GetFrames())) + "\n";
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

/// How many tones the channel has that has the most.
std::size_t CountTones(const MeasuredSound& sound) {
    std::size_t most = 0;
    for (const SoundFigures::Channel& each : sound.figures.channels)
        most = std::max(most, each.tones.tones.size());
    return most;
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
        if (CountTones(sound) == 0)
            return text + "\nNo tones: noise, a sweep, clicks or silence\n";
        if (CountTones(sound) == 1) // several are listed
            WriteGroup(Group::Tone, "Tone");
        WriteGroup(Group::Distortion, "Distortion and noise");
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
        bool isFound = figure.group == Group::Levels;
        for (const MeasuredColumn& each : columns) {
            const auto value = figure.ofChannel(each.figures);
            isFound |= value.has_value();
            cells.push_back(IsShown(each, figure.group) ? figure.Format(value) : "");
            times.push_back(value ? FormatClock(sound.GetMilliseconds(std::llround(*value))) : "");
        }
        if (!isFound)
            return {};
        const bool isTime = figure.unit == std::string_view("frame");
        return Row(figure.label, cells, figure.unit) + (isTime ? Row("", times, "min:s") : "");
    }

    const MeasuredSound& sound;
    std::span<const MeasuredColumn> columns;
    std::string text;
};

std::string TellFigures(const MeasuredSound& sound) {
    std::vector<MeasuredColumn> columns = ListChannels(sound);
    if (columns.size() > 1)
        columns.push_back(MakeWhole(sound));
    std::string text;
    for (std::span<const MeasuredColumn> left = columns; !left.empty();
         left = left.subspan(std::min(left.size(), ColumnsAbreast)))
        text += FigureTable(sound, left.first(std::min(left.size(), ColumnsAbreast))).Write();
    return text;
}

/// Figures of the sound as a whole; of what may be lost, where there is something.
std::string TellGroup(const MeasuredSound& sound, Group group) {
    std::string text;
    for (const MeasuredFigure& each : GetMeasuredFigures()) {
        if (each.group != group)
            continue;
        const MeasuredFigure::Value value = each.ofSound(sound);
        if (group != Group::Losses || value > 0)
            text += Row(each.label, {each.Format(value)}, each.unit);
    }
    return text;
}

std::string TellLine(const ToneLine& line) {
    return PadLeft(FormatNumber(line.hz, 4), 16) + " Hz" +
           PadLeft(FormatNumber(ToDecibels(line.amplitude), 2), 10) + " dBFS";
}

/// Where there are several: one is among the figures.
std::string TellTones(const ToneFigures& figures) {
    std::string text;
    for (const ToneLine& each : figures.tones)
        text += TellLine(each) + "\n";
    return figures.tones.size() > 1 ? text : "";
}

/// The strongest lines that are no tones, and how far they are from the strongest one.
std::string TellLines(const ToneFigures& figures) {
    const auto strongest = FindStrongestTone(figures);
    std::string text;
    for (const ToneLine& each : figures.strongest) {
        if (each.harmonic == 1)
            continue;
        std::string line = TellLine(each);
        if (strongest)
            line += PadLeft(FormatNumber(ToDecibels(each.amplitude / strongest->amplitude), 2), 10) + " dB";
        if (each.harmonic > 1)
            line += "  harmonic " + std::to_string(each.harmonic);
        if (each.harmonic > 1 && figures.tones.size() > 1)
            line += " of " + FormatNumber(figures.tones[static_cast<std::size_t>(each.tone)].hz, 0) + " Hz";
        text += line + "\n";
    }
    return text;
}

/// A list for each channel; those that have the same one share it.
std::string TellLists(const MeasuredSound& sound, const std::string& title,
                      std::string (*tell)(const ToneFigures&)) {
    std::vector<std::pair<std::string, std::string>> told; ///< names of channels, lines
    for (const MeasuredColumn& each : ListChannels(sound)) {
        const std::string lines = tell(each.figures.tones);
        const auto same =
            std::find_if(told.begin(), told.end(), [&](const auto& one) { return one.second == lines; });
        if (same == told.end())
            told.emplace_back(each.title, lines);
        else
            same->first += ", " + each.title;
    }
    std::string text;
    for (const auto& [names, lines] : told)
        if (!lines.empty())
            text += "\n" + title + (sound.figures.channels.size() > 1 ? ": " + names : "") + "\n" + lines;
    return text;
}

std::string TellSpectrum(const Spectrum& spectrum) {
    if (spectrum.segmentFrames == 0)
        return "none: the sound is too short";
    const auto overlap = 100 - 100 * spectrum.hopFrames / spectrum.segmentFrames;
    return std::to_string(spectrum.segments) + " segments of " + std::to_string(spectrum.segmentFrames) +
           " frames that overlap by " + std::to_string(overlap) + "%,\n             " +
           FormatNumber(spectrum.GetHzPerBin(), 3) + " Hz a bin, Kaiser window of beta " +
           FormatNumber(Spectrum::WindowBeta, 0) + ", powers averaged";
}

std::string TellMethod(const MeasuredSound& sound) {
    return "\nHow it was measured\n"
           "Levels       0 dBFS is full scale. A full-scale sine has an RMS of -3.01 dBFS,\n"
           "             which AES17 and IEC 61606-3 call 0. The level of a tone is its peak\n"
           "True peak    4 times oversampled, after ITU-R BS.1770-4, annex 2\n"
           "Clipped      samples at full scale of " +
           NameSamples(sound.bits) +
           "\n"
           "Distortion   from 20 Hz to 20 kHz. THD: harmonics to tones. THD+N: all but the\n"
           "             tones to all (AES17). Noise: neither tones nor harmonics.\n"
           "             none: no harmonic, or no line at all, stands out of the noise\n"
           "Spectrum     " +
           TellSpectrum(sound.figures.spectrum) + "\n";
}

} // namespace

std::string ReportMeasurement(const MeasuredSound& sound) {
    const std::string stereo = sound.figures.stereo ? "\nStereo\n" + TellGroup(sound, Group::Stereo) : "";
    return Head(sound) + TellGroup(sound, Group::Losses) + TellFigures(sound) + stereo +
           TellLists(sound, "Tones", TellTones) + TellLists(sound, "Strongest other lines", TellLines) +
           TellMethod(sound);
}
