#pragma once

#include "sound/level.h"
#include "sound/sound_sink.h"

#include <limits>

/// What a sink has been given.
struct SinkMeasure {
    int frames = 0;
    int peak = 0;                                 ///< the largest magnitude...
    int enough = std::numeric_limits<int>::max(); ///< ...or one from here on, behind which it does not look
};

/// Passes on what it is given, and measures it.
class LPeakSink : public LSoundSinkBase {
public:
    /// The measure must outlive the sink.
    LPeakSink(const LSoundSink& target, SinkMeasure& targetMeasure)
        : LSoundSinkBase(target->sampleRate, target->channels),
          sink(target),
          measure(targetMeasure) {
        peakLimit = target->peakLimit;
        TakeStatus();
    }

    void Write(const int* buffer, int frames) override {
        sink->Write(buffer, frames);
        measure.frames += frames;
        if (measure.peak < measure.enough)
            measure.peak = std::max(measure.peak, GetBufferPeak(buffer, frames, channels));
        TakeStatus();
    }
    void Finish() override {
        sink->Finish();
        TakeStatus();
    }

private:
    void TakeStatus() {
        status = sink->status;
        failure = sink->failure;
    }

    LSoundSink sink;
    SinkMeasure& measure;
};
