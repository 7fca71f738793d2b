#pragma once

#include "tone/tone_data.h"

/// Changes the tone as a command of the Tone menu says: its mode, channels, waveform or number of tones.
/// False, with the tone as it was, for every other command.
bool ChangeTone(SonvireData& tone, int command);

/// The command that would lead to the tone's mode: one of the four from `CommandContinuous` on.
int GetModeCommand(const SonvireData& tone);

/// Sets the duration to that of one pass, also of a tone that loops.
void TakeLength(SonvireData& tone);

/// Takes as much of the path as the record holds.
void SetListPath(SonvireData& tone, const std::string& path);
