#pragma once

#include "sys/desktop/crash_report.h"
#include "tone/tone_data.h"

class Playback;

/// Keeps the current tone through a crash, and tells the crash report what it was.
class ToneWitness : private LCrashWitness {
public:
    /// Both must outlive this.
    ToneWitness(const SonvireData& currentTone, const Playback& tonePlayback)
        : tone(currentTone),
          playback(tonePlayback) {}
    ~ToneWitness() { Leave(); }
    ToneWitness(const ToneWitness&) = delete;
    ToneWitness& operator=(const ToneWitness&) = delete;

    /// From here on a crash writes the tone to this file.
    void Watch(const std::string& file);
    void Leave() { LSetCrashWitness(nullptr); }

private:
    void SaveAtCrash() const override;
    void DescribeAtCrash(LFixedText& report) const override;

    const SonvireData& tone;
    const Playback& playback;
    LFixedText path;
    LFixedText temporaryPath;
};
