#pragma once

/// Decoder state of IMA ADPCM, 4 bits per sample (IMA Digital Audio Focus and Technical Working Groups,
/// "Recommended Practices for Enhancing Digital Audio Compatibility in Multimedia Systems", 1992).
struct LIMAADPCM {
    static constexpr int MaxStepIndex = 88;

    int predictor = 0; ///< -32768..32767
    int stepIndex = 0; ///< 0..88

    /// Decodes the low four bits; returns an internal sample, the predictor * 16.
    int DecodeSample(unsigned char nibble);
};
