#pragma once

/// One small step of a frequency.
struct FrequencyStep {
    bool bySemitones = true; ///< else by Hz
    int semitones = 1;
    double hz = 1.0;
};

/// Where steps upwards end.
inline constexpr double MaxSteppedHz = 20000.0;
/// One step up, to `MaxSteppedHz` at most.
void AdjustIncreaseFrequencyValueHz(double& hz, const FrequencyStep& step);
/// One step down, to 0 Hz.
void AdjustDecreaseFrequencyValueHz(double& hz, const FrequencyStep& step);
