#include "app/window/tone_witness.h"

#include "app/window/playback.h"

void ToneWitness::Watch(const std::string& file) {
    path.Clear();
    temporaryPath.Clear();
    path.Add(file);
    temporaryPath.Add(file).Add(".crash");
    LSetCrashWitness(this);
}

void ToneWitness::SaveAtCrash() const {
    SonvireData image = tone;
    image.NativeToLittleEndian();
    LReplaceFileAtCrash(path.CString(), temporaryPath.CString(), &image, SonvireData::FileBytes);
}

void ToneWitness::DescribeAtCrash(LFixedText& report) const {
    report.Add("Tone: ").Add(tone.GetToneName()).Add(", ").Add(tone.GetModeName());
    report.Add(", components: ").AddNumber(tone.numTones).Add(", flags: ").AddHex(tone.flags);
    report.Add(", duration: ").AddNumber(tone.durationMs).Add(" ms, loop: ").AddNumber(tone.repeat);
    report.Add(playback.IsPlaying() ? "\nPlaying\n" : "\nStopped\n");
}
