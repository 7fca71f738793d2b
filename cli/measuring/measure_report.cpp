#include "cli/measuring/measure_report.h"

#include "cli/measuring/measure_table.h"
#include "cli/refusal.h"
#include "sound/decibels.h"

#include <algorithm>

namespace {

using Group = MeasuredFigure::Group;

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

std::string TellLine(const ToneLine& line) {
    return PadLeft(FormatNumber(line.hz, 4), 16) + " Hz" +
           PadLeft(FormatNumber(ToDecibels(line.amplitude), 2), 10) + " dBFS";
}

/// Why there are none.
std::string TellNoTones(const ToneFigures& figures) {
    const char* reason = ExplainNoTones(figures);
    return reason ? std::string("  ") + reason + "\n" : "";
}

std::string TellTones(const ToneFigures& figures) {
    std::string text;
    for (const ToneLine& each : figures.tones)
        text += TellLine(each) + "\n";
    return text;
}

/// The strongest lines that are no tones, and how far they are from the strongest one.
std::string TellLines(const ToneFigures& figures) {
    const ToneLine* main = GetMainTone(figures);
    std::string text;
    for (const ToneLine& each : figures.strongest) {
        if (each.harmonic == 1)
            continue;
        std::string line = TellLine(each);
        if (main)
            line += PadLeft(FormatNumber(ToDecibels(each.amplitude / main->amplitude), 2), 10) + " dB";
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
            same->first.append(", ").append(each.title);
    }
    std::string text;
    for (const auto& [names, lines] : told) {
        const std::string of = sound.figures.channels.size() > 1 ? ": " + names : "";
        if (!lines.empty())
            text.append("\n").append(title).append(of).append("\n").append(lines);
    }
    return text;
}

std::string TellSpectrum(const Spectrum& spectrum) {
    if (spectrum.segmentFrames == 0)
        return "none: the sound is too short";
    const auto overlap = 100 - 100 * spectrum.hopFrames / spectrum.segmentFrames;
    return std::to_string(spectrum.segments) + " segments of " + std::to_string(spectrum.segmentFrames) +
           " frames that overlap by " + std::to_string(overlap) + "%,\n             " +
           FormatNumber(spectrum.GetHzPerBin(), 3) + " Hz a bin, Kaiser window of beta " +
           FormatNumber(Spectrum::WindowBeta, 0) + ", powers averaged" +
           (spectrum.lookedAt < 1 ? ",\n             " + FormatNumber(100 * spectrum.lookedAt, 0) +
                                        "% of the sound; the rest goes on as it begins"
                                  : "");
}

std::string TellMethod(const MeasuredSound& sound) {
    return "\nHow it was measured\n"
           "Levels       0 dBFS is full scale. A full-scale sine has an RMS of -3.01 dBFS,\n"
           "             which AES17 and IEC 61606-3 call 0. The level of a tone is its peak\n"
           "True peak    4 times oversampled, after ITU-R BS.1770-4, annex 2\n"
           "Clipped      samples at full scale of " +
           NameSamples(sound.bits) +
           "\n"
           "Distortion   of the strongest tone, from 20 Hz to 20 kHz. THD: harmonics to the\n"
           "             tone. THD+N: all but the tone to all (AES17, IEC 61606-3). Noise:\n"
           "             neither the tone nor its harmonics.\n"
           "             none: no harmonic, or no line at all, stands out of the noise\n"
           "Spectrum     " +
           TellSpectrum(sound.figures.spectrum) + "\n";
}

} // namespace

std::string ReportMeasurement(const MeasuredSound& sound) {
    std::string stereo = WriteSoundFigures(sound, Group::Stereo);
    if (!stereo.empty())
        stereo.insert(0, "\nStereo\n");
    return Head(sound) + WriteSoundFigures(sound, Group::Losses) + WriteFigureTable(sound) + stereo +
           TellLists(sound, "No figures of tones", TellNoTones) +
           (sound.CountTones() > 1 ? TellLists(sound, "Tones", TellTones) : "") +
           TellLists(sound, sound.CountTones() > 0 ? "Strongest other lines" : "Strongest lines", TellLines) +
           TellMethod(sound);
}
