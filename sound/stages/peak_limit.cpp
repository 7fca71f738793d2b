#include "sound/stages/peak_limit.h"

#include "sound/kernels/kernels.h"
#include "sound/level.h"

LSRCPeakLimit::LSRCPeakLimit(const LSoundSource& wrapped, int peakLimit, std::shared_ptr<LLimiterNews> told)
    : LSoundProcessBase(wrapped),
      limit(std::min(peakLimit, MaxLimit)),
      block(std::clamp(sampleRate / (input->IsStreaming() ? 70 : 35), 16, MaxBlockFrames)),
      delay(3 * block),
      index(delay),
      news(std::move(told)) {
    peakMax = limit;
    for (Block& each : blocks)
        each.samples.resize(static_cast<std::size_t>(block) * channels);
}

int LSRCPeakLimit::GetPositionSample() const {
    return WrapAdd(input->GetPositionSample(), index - delay);
}

int LSRCPeakLimit::GetEndSample() const {
    const int end = input->GetEndSample();
    return IsStreaming() ? WrapSubtract(end, delay) : end;
}

void LSRCPeakLimit::Seek(int frame) {
    input->Seek(frame);
    Restart();
}

/// limit / peak in 8.24, with the peak rounded to a multiple of 64 so that 32 bits hold every step.
int LSRCPeakLimit::ConvMaxtoLev(int peak) const {
    if (limit >= peak)
        return UnityGain;
    const std::int64_t rounded = (std::int64_t{peak} + 64) >> 6;
    return static_cast<int>(std::int64_t{limit} * 512 / rounded * 512);
}

void LSRCPeakLimit::Load(Block& target) {
    input->Read(target.samples.data(), block);
    target.gain = ConvMaxtoLev(GetBufferPeak(target.samples.data(), block, channels));
}

void LSRCPeakLimit::Restart() {
    for (Block& each : blocks)
        Load(each);
    previousGain = gain = blocks[0].gain;
    CalcCLev();
    index = 0;
}

void LSRCPeakLimit::Advance() {
    previousGain = blocks[0].gain;
    std::rotate(blocks.begin(), blocks.begin() + 1, blocks.end());
    Load(blocks[2]);
    CalcCLev();
    index = 0;
}

/// Plans the gain's line over the current block: to a value that is safe for this block and the one after it.
void LSRCPeakLimit::CalcCLev() {
    const int mean = (previousGain + blocks[0].gain + blocks[1].gain + blocks[2].gain) >> 2;
    const int target = std::min({blocks[0].gain, blocks[1].gain, mean});
    const int delta = target - gain;
    step = delta / block;
    gain += delta % block; // at once, so that after `block` steps the gain is the target exactly
}

void LSRCPeakLimit::Read(int* buffer, int frames) {
    while (frames > 0) {
        if (index >= delay)
            Restart();
        else if (index >= block)
            Advance();
        const int count = std::min(frames, block - index);
        Deliver(buffer, count);
        index += count;
        buffer += std::ptrdiff_t{count} * channels;
        frames -= count;
    }
}

void LSRCPeakLimit::Deliver(int* buffer, int frames) {
    const int* samples = &blocks[0].samples[static_cast<std::size_t>(index) * channels];
    if (gain >= UnityGain && step == 0) {
        std::copy_n(samples, frames * channels, buffer);
        return;
    }
    Kernels().applyGainLine(buffer, samples, frames, channels, gain, step);
    if (news)
        news->Note(std::min(gain, gain + step * (frames - 1))); // a line is lowest at one of its ends
    gain += step * frames;
}

LSoundSource LSPPeakLimit::OpenSource(const LSoundSource& input) const {
    return input->peakMax > limit ? LSoundSource::Make<LSRCPeakLimit>(input, limit, news) : input;
}
