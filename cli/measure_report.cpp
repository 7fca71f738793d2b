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

/// The groups of figures, of columns that stand side by side.
class FigureTable {
public:
    FigureTable(const MeasuredSound& measured, std::span<const MeasuredColumn> shown)
        : sound(measured),
          columns(shown) {}

    std::string Write() {
        WriteGroup(Group::Levels, "Levels");
        WriteGroup(Group::Faults, "Faults");
        WriteGroup(Group::Tones, "Strongest tone");
        WriteGroup(Group::Distortion, "Distortion and noise");
        return text;
    }

private:
    void WriteGroup(Group group, const std::string& title) {
        std::vector<std::string> titles;
        for (const MeasuredColumn& each : columns)
            titles.push_back(!each.isWhole || MeasuredFigure::HasWhole(group) ? each.title : "");
        text += "\n" + Row(title, titles, "");
        for (const MeasuredFigure& each : GetMeasuredFigures())
            if (each.group == group)
                WriteFigure(each);
    }

    void WriteFigure(const MeasuredFigure& figure) {
        std::vector<std::string> cells, times;
        bool isFound = false;
        for (const MeasuredColumn& each : columns) {
            const bool isShown = !each.isWhole || MeasuredFigure::HasWhole(figure.group);
            const auto value = figure.ofChannel(each.figures);
            isFound |= value.has_value();
            cells.push_back(isShown ? figure.Format(value) : "");
            times.push_back(value ? FormatClock(sound.GetMilliseconds(std::llround(*value))) : "");
        }
        if (figure.label[0] == ' ' && !isFound)
            return;
        text += Row(figure.label, cells, figure.unit);
        if (figure.unit == std::string_view("frame"))
            text += Row("", times, "min:s");
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

/// The figures of the sound as a whole; those of two channels only where there are two.
std::string TellSound(const MeasuredSound& sound) {
    std::string text = "\nSound\n";
    for (const MeasuredFigure& each : GetMeasuredFigures()) {
        if (!each.ofSound)
            continue;
        const MeasuredFigure::Value value = each.ofSound(sound);
        if (value || sound.figures.stereo)
            text += Row(each.label, {each.Format(value)}, each.unit);
    }
    return text;
}

std::string NameLine(const ToneLine& line, std::size_t tones) {
    if (line.harmonic == 0)
        return "";
    const std::string tone = tones > 1 ? "tone " + std::to_string(line.tone + 1) : "tone";
    return line.harmonic == 1
               ? tone
               : "harmonic " + std::to_string(line.harmonic) + (tones > 1 ? " of " + tone : "");
}

/// The strongest lines, and all tones that are not among them.
std::string TellLines(const ToneFigures& figures) {
    std::vector<ToneLine> lines = figures.strongest;
    for (const ToneLine& tone : figures.tones)
        if (std::none_of(lines.begin(), lines.end(),
                         [&](const ToneLine& each) { return each.hz == tone.hz; }))
            lines.push_back(tone);
    std::string text;
    for (const ToneLine& each : lines)
        text += EndLine(PadLeft(FormatNumber(each.hz, 4), 16) + " Hz" +
                        PadLeft(FormatNumber(ToDecibels(each.amplitude), 2), 10) + " dBFS" +
                        PadLeft(FormatNumber(ToDecibels(each.amplitude / lines.front().amplitude), 2), 10) +
                        " dB  " + NameLine(each, figures.tones.size()));
    return lines.empty() ? "  none\n" : text;
}

/// Channels that have the same ones share them.
std::string TellAllLines(const MeasuredSound& sound) {
    std::vector<std::pair<std::string, std::string>> told; ///< names of channels, lines
    for (const MeasuredColumn& each : ListChannels(sound)) {
        const std::string lines = TellLines(each.figures.tones);
        const auto same =
            std::find_if(told.begin(), told.end(), [&](const auto& one) { return one.second == lines; });
        if (same == told.end())
            told.emplace_back(each.title, lines);
        else
            same->first += ", " + each.title;
    }
    std::string text;
    for (const auto& [names, lines] : told)
        text += "\nStrongest lines of the spectrum" +
                (sound.figures.channels.size() > 1 ? ": " + names : "") + "\n" + lines;
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
           "             tones to all (AES17). Noise: neither tones nor harmonics\n"
           "Spectrum     " +
           TellSpectrum(sound.figures.spectrum) + "\n";
}

} // namespace

std::string ReportMeasurement(const MeasuredSound& sound) {
    return Head(sound) + TellFigures(sound) + TellSound(sound) + TellAllLines(sound) + TellMethod(sound);
}
