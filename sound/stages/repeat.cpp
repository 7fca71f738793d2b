#include "sound/stages/repeat.h"

#include <algorithm>

namespace {

constexpr int MinPassFrames = 256;
constexpr int SecondsShownPastLoop = 8;

} // namespace

LSRCRepeat::LSRCRepeat(const LSoundSource& wrapped, int start, int end)
    : LSoundProcessBase(wrapped),
      loopStart(std::min(start, end)),
      loopEnd(std::max(start, end)) {}

void LSRCRepeat::Read(int* buffer, int frames) {
    if (status != SoundUsable)
        return;
    int span = WrapSubtract(loopEnd, input->GetPositionSample());
    while (span <= frames) {
        if (span > 0) {
            input->Read(buffer, span);
            buffer += std::ptrdiff_t{span} * channels;
            frames -= span;
        }
        input->Seek(loopStart);
        span = std::max(WrapSubtract(loopEnd, loopStart), MinPassFrames);
    }
    input->Read(buffer, frames);
}

int LSRCRepeat::GetEndSample() const {
    return WrapAdd(loopEnd, WrapMultiply(SecondsShownPastLoop, sampleRate));
}

void LSRCRepeat::Seek(int target) {
    if (target < loopEnd)
        input->Seek(target);
    else if (loopEnd > loopStart)
        input->Seek(static_cast<int>((std::int64_t{target} - loopEnd) % (std::int64_t{loopEnd} - loopStart)));
    else
        input->Seek(loopStart);
}

LSoundSource LSPRepeat::OpenSource(const LSoundSource& input) const {
    if (input->status != SoundUsable)
        return input;
    return LSoundSource::Make<LSRCRepeat>(input, loopStart.GetSamples(input->sampleRate),
                                          loopEnd.GetSamples(input->sampleRate));
}
