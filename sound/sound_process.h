#pragma once

#include "sound/sound_source.h"

/// A source that wraps one input source and forwards to it whatever the stage does not change.
class LSoundProcessBase : public LSoundSourceBase {
public:
    int GetPositionSample() const override { return input->GetPositionSample(); }
    int GetEndSample() const override { return input->GetEndSample(); }
    void Seek(int frame) override { input->Seek(frame); }
    bool IsStreaming() const override { return input->IsStreaming(); }
    void WaitForStreamingData(int milliseconds) override { input->WaitForStreamingData(milliseconds); }
    void Unload() override { input->Unload(); }

protected:
    /// Shares the input and takes over its rate, channels and peak; `SoundInputUnusable` where the input has
    /// a status.
    explicit LSoundProcessBase(const LSoundSource& wrapped)
        : LSoundSourceBase(wrapped->sampleRate, wrapped->channels, wrapped->peakMax),
          input(wrapped) {
        if (input->status != SoundUsable)
            status = SoundInputUnusable;
    }

    LSoundSource input;
};

/// Configured once, then applied to sources: returns the source wrapped in a stage, or the source itself
/// where no stage is needed. The only way in which stages are put on a chain.
class LSoundProcessor {
public:
    virtual ~LSoundProcessor() = default;
    /// Thread: builder. Blocks: no. Allocates: yes.
    virtual LSoundSource OpenSource(const LSoundSource& input) const = 0;
};
