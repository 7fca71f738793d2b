#pragma once

#include "play/played_sound.h"
#include "sound/sound_source.h"
#include "sound/stages/peak_limit.h"

#include <memory>
#include <vector>

/// A source in 16 bits, at its own rate or the nearest that an output takes, and limited.
class LStandardSound : public LPlayedSound {
public:
    /// `lowestRate` is the lowest that the output is asked for. Thread: owner, as for the handles' release.
    LStandardSound(const LSoundSource& toPlay, int lowestRate);

    /// False where it can't be brought into that form. Thread: owner.
    bool IsUsable() const { return source->status == SoundUsable; }

    std::optional<LPlayFormat> Open(const std::function<int()>& findRate) override;
    int GetAhead(int most) const override;
    void Read(LSoundPlayerBuffer& buffer, int frames) override;
    bool IsStreaming() const override { return source->IsStreaming(); }
    void WaitForStreamingData(int milliseconds) override { source->WaitForStreamingData(milliseconds); }
    LSoundTime GetEnd() const override { return original.GetEnd(); }

private:
    int ToOriginal(int position) const;

    const std::shared_ptr<LLimiterNews> limiter = std::make_shared<LLimiterNews>();
    const LSoundSource original, source;
    std::vector<int> work; ///< one block
};
