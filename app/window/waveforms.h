#pragma once

#include "app/window/command_ids.h"
#include "tone/tone_data.h"

#include <algorithm>
#include <iterator>

enum class WaveformKind {
    Periodic, ///< has frequencies, so components, sweeps, amplitudes and two channels
    Noise,    ///< has a duration, and nothing else to set
    List,     ///< chosen with a file, so in the tool bar alone
};

/// A waveform as the window offers it: a row here is all that menus, tool bar, commands and enabling need.
struct WaveformRow {
    ToneWaveform code;
    WaveformKind kind;
    const char* name; ///< in the menus
    const char* icon;
    const char* toolTip;

    constexpr int GetCommand() const { return int{CommandFirstWaveform} + code; }
};

/// In the order of the menus and of the tool bar.
inline constexpr WaveformRow Waveforms[] = {
    {ToneSine, WaveformKind::Periodic, "Sine", "sine", "Sine"},
    {ToneSquare, WaveformKind::Periodic, "Square", "square", "Square"},
    {ToneTriangular, WaveformKind::Periodic, "Triangular", "triangle", "Triangle"},
    {ToneSawTooth, WaveformKind::Periodic, "Saw Tooth", "saw-tooth", "Saw tooth"},
    {ToneImpulse, WaveformKind::Periodic, "Impulse", "impulse", "Impulse train"},
    {ToneWhiteNoise, WaveformKind::Noise, "White Noise", "white-noise", "White noise"},
    {TonePinkNoise, WaveformKind::Noise, "Pink Noise", "pink-noise", "Pink noise"},
    {ToneFromList, WaveformKind::List, "", "tone-list", "Load List"},
};

inline constexpr int CommandLastWaveform =
    std::max_element(std::begin(Waveforms), std::end(Waveforms),
                     [](const auto& a, const auto& b) { return a.code < b.code; }) -> GetCommand();

/// Null where the command is that of no waveform.
constexpr const WaveformRow* FindWaveform(int command) {
    const auto* found = std::find_if(std::begin(Waveforms), std::end(Waveforms),
                                     [command](const auto& row) { return row.GetCommand() == command; });
    return found == std::end(Waveforms) ? nullptr : found;
}

/// How many the menus offer.
inline constexpr auto WaveformsInMenus =
    static_cast<std::size_t>(std::count_if(std::begin(Waveforms), std::end(Waveforms),
                                           [](const auto& row) { return row.kind != WaveformKind::List; }));
