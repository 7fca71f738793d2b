#pragma once

#include "sys/failure.h"
#include "sys/notice.h"
#include "tone/frequency_step.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

/// The most component tones that sound at once, and the size of every per-component array.
inline constexpr int MaxTones = 16;
/// Every tone source runs at this rate; consumers convert.
inline constexpr int ToneSampleRate = 44100;
/// What an endless tone says its length is: one minute.
inline constexpr int EndlessToneFrames = 60 * ToneSampleRate;

/// The longest duration whose frames can be counted, 13 and a half hours; the count wraps beyond it.
inline constexpr std::uint32_t MaxToneDurationMs = 48'695'774;

/// Bits of `SonvireFile::flags`; all others are zero.
enum ToneFlags : std::uint16_t {
    ToneFlagSweep = 0x0001,             ///< from the start to the end frequency over the duration
    ToneFlagLogSweep = 0x0002,          ///< geometrically; without it, linearly
    ToneFlagStereo = 0x0004,            ///< two channels with frequencies of their own
    ToneFlagDuration = 0x0008,          ///< `durationMs` long; without it, endless
    ToneFlagVariableAmplitude = 0x0010, ///< each component at its `amplitudeDb`; without it, all at 0 dB
};

enum ToneWaveform : std::uint8_t {
    ToneSine = 0,
    ToneSquare = 1,
    ToneTriangular = 2,
    ToneSawTooth = 3,
    ToneImpulse = 4,
    ToneWhiteNoise = 5,
    TonePinkNoise = 6,
    ToneFromList = 7, ///< plays the tone list at `listPath`
};

/// One tone, as a plain record. Its first 797 bytes are the tone data file (docs/file-formats.md). Files are
/// taken as they stand, so every field can have any value.
struct SonvireFile {
    static constexpr std::size_t FileBytes = 797;
    static constexpr std::size_t ListPathBytes = 260;

    /// A continuous mono 1000 Hz sine at 0 dB.
    SonvireFile();

    /// Convert the record in place between a file's byte order and the host's.
    void LittleEndianToNative();
    void NativeToLittleEndian();
    /// True where their files are the same.
    bool operator==(const SonvireFile& other) const;

    std::uint16_t flags = 0;
    std::uint8_t waveform = ToneSine;
    std::uint8_t numTones = 1;         ///< 1..16; more sound as 16
    std::uint32_t durationMs = 1000;   ///< used when `ToneFlagDuration` is set
    double startLeftHz[MaxTones];      ///< the frequency, the left one in stereo, or where its sweep starts
    double endLeftHz[MaxTones];        ///< where the (left) sweep ends
    double startRightHz[MaxTones];     ///< the right frequency, or where its sweep starts
    double endRightHz[MaxTones];       ///< where the right sweep ends
    std::int8_t amplitudeDb[MaxTones]; ///< -127 (silence) .. 0; used when `ToneFlagVariableAmplitude` is set
    std::uint8_t repeat = 0;           ///< non-zero: playback loops
    char listPath[ListPathBytes];      ///< zero-terminated, empty unless `waveform` is `ToneFromList`
};

/// The record with its operations.
class SonvireData : public SonvireFile {
public:
    /// The waveform's display name, "" for unknown codes.
    const char* GetToneName() const;
    /// `listPath` up to its terminator, or all of it where there is none.
    std::string GetListPath() const;
    bool IsList() const { return waveform == ToneFromList; }
    /// Whether frequencies, levels, sweeps and channels apply: not to noise, nor to a list.
    bool HasComponents() const;
    bool HasFlag(ToneFlags flag) const { return (flags & flag) != 0; }
    /// Only a tone with a duration that doesn't loop ends, and can be rendered or become part of a list.
    bool IsFinite() const { return HasFlag(ToneFlagDuration) && repeat == 0; }
    /// Makes the tone that long, and finite.
    void SetDuration(std::uint32_t ms);
    /// Whether the frames of its duration can be counted, where it is the duration that it plays for.
    LFailure CheckCountable() const;
    /// The length in frames at 44100 Hz; 0 without a duration.
    int GetDurationFrames() const;

    /// How many components sound and are shown: `numTones`, but 16 at most.
    unsigned int GetToneCount() const;
    /// The mode that the flags make up, as it is called in menus: "Constant (Continuous)" and so on.
    const char* GetModeName() const;

    /// The items of tone/tone_items.h. `GetItemName`: the row's label, `GetItemValue`: its value with the
    /// unit; both empty where the item is not used in the tone's mode or names nothing.
    std::string GetItemName(unsigned int item) const;
    std::string GetItemValue(unsigned int item) const;
    /// Takes a typed text, units and all. What is out of range is replaced by the nearest value, a duration
    /// by 1000 ms, with a notice that says so; frequencies are taken as they are.
    [[nodiscard]] std::optional<LNotice> SetItemValue(unsigned int item, const char* text);
    /// Steps: by the frequency step, 1 dB, and 100 or 1000 ms; the large ones by an octave, 1 dB, and
    /// 500 or 5000 ms.
    /// Kept quirk: up and down don't mirror each other.
    void IncreaseItem(unsigned int item, const FrequencyStep& step);
    void DecreaseItem(unsigned int item, const FrequencyStep& step);
    void IncreaseItemLarge(unsigned int item);
    void DecreaseItemLarge(unsigned int item);

    /// Fills the record from a tone data file, of which only the first 797 bytes count. Where it can't be
    /// read in full the record holds the default tone; a failure without a system error number is then one
    /// of the content.
    LFailure ReadFromFile(const char* path);
    LFailure WriteToFile(const char* path) const;
};
