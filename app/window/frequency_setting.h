#pragma once

#include "tone/frequency_step.h"

/// The step of a frequency that the user has chosen in the preferences.
FrequencyStep ReadFrequencyStep();
