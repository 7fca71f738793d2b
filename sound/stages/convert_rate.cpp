#include "sound/stages/convert_rate.h"

#include "sound/level.h"
#include "sound/stages/convert_channels.h"

#include <algorithm>

namespace {

constexpr int MaxPeakToDouble = 0x100000;
constexpr int LastRefillStart = 32511; // a buffer filled beyond this is moved to its front first

int RaisePeak(int peak) {
    return peak <= MaxPeakToDouble ? peak * 2 : peak;
}

} // namespace

LSRCConvertRate::LSRCConvertRate(const LSoundSource& wrapped, int outRate, bool wide)
    : LSoundProcessBase(wrapped),
      design(LSharedFilter::Get(sampleRate, std::max(outRate, 1), wide)),
      filter(design->filter),
      work(std::size_t{channels} * (BufferFrames + Taps)),
      negated(std::size_t{channels} * NarrowFrames) {
    sampleRate = outRate;
    if (sampleRate < 1) {
        sampleRate = 44100;
        status = SoundInvalidFormat;
    }
    peakMax = RaisePeak(peakMax);
}

int LSRCConvertRate::GetPositionSample() const {
    return filter.GetFraction().ToOutputFrames(
        WrapAdd(input->GetPositionSample(), spanStart - fill - (HalfTaps + 1)));
}

int LSRCConvertRate::GetEndSample() const {
    return ConvertEnd(filter.GetFraction(), input->GetEndSample(), IsStreaming());
}

int LSRCConvertRate::ConvertEnd(const LRateFraction& fraction, int inputEnd, bool streaming) {
    return streaming ? fraction.ToOutputFrames(WrapSubtract(inputEnd, HalfTaps + 2)) - 1
                     : fraction.ToOutputFrames(inputEnd);
}

void LSRCConvertRate::Seek(int target) {
    input->Seek(WrapSubtract(filter.GetFraction().ToInputFrames(target), HalfTaps));
    spanStart = HalfTaps + 1;
    fill = 0;
    const int phases = filter.GetPhases();
    phaseAccumulator = static_cast<int>(std::int64_t{target % phases} * filter.GetStep() % phases);
    if (phaseAccumulator < 0) // before the beginning
        phaseAccumulator += phases;
    input->Read(WorkFrame(HalfTaps + 1), HalfTaps);
    inputShift = 0;
}

int* LSRCConvertRate::WorkFrame(int frame) {
    return &work[static_cast<std::size_t>(frame) * channels];
}

int LSRCConvertRate::GetFramesToRead() const {
    const int space = BufferFrames - fill;
    int frames = space;
    if (input->IsStreaming()) {
        const int arrived = WrapSubtract(input->GetEndSample(), input->GetPositionSample());
        frames = std::min(arrived < 1 ? 64 : arrived, space);
    }
    return std::min(frames, MaxBlockFrames);
}

void LSRCConvertRate::ReadBuffer() {
    const auto samples = [this](int frames) { return frames * channels; };
    if (fill > LastRefillStart) {
        std::copy_n(WorkFrame(fill), samples(Taps), WorkFrame(0));
        spanStart -= fill;
        fill = 0;
    }
    int* reach = WorkFrame(fill);
    for (int i = 0; i < samples(Taps) && inputShift != 0; ++i)
        reach[i] = WrapShiftLeft(reach[i], inputShift);

    const int frames = GetFramesToRead();
    input->Read(reach + samples(Taps), frames);
    SetInputShift(GetBufferPeak(reach, Taps + frames, channels));
    negatedStart = fill;
    samplesFit = channels <= 2 && Kernels().pack(reach, Taps + frames, inputShift, GetNegated(fill));
    fill += frames;
}

void LSRCConvertRate::SetInputShift(int peak) {
    inputShift = 0;
    while ((peak >> inputShift) >= 32768)
        ++inputShift;
    const bool fits = inputShift <= 15;
    outputShift = fits ? 15 - inputShift : 31;
    rounding = fits ? (1 << outputShift) >> 1 : 0;
}

LChannelSamples LSRCConvertRate::GetNegated(int frame) {
    return {.first = &negated[static_cast<std::size_t>(frame - negatedStart)],
            .distance = NarrowFrames,
            .channels = channels};
}

void LSRCConvertRate::Read(int* buffer, int frames) {
    while (frames > 0) {
        EnterSubPhase();
        while (spanStart >= fill)
            ReadBuffer();
        const int count = std::min(frames, GetFramesInBuffer());
        if (channels > 2) // a layout that nothing converts
            ClearAudioBuffer(buffer, count, channels);
        else if (design->rowsFit && samplesFit)
            Produce(buffer, count);
        else
            ProduceWide(buffer, count);
        MoveOn(count);
        buffer += count * channels;
        frames -= count;
    }
}

void LSRCConvertRate::EnterSubPhase() {
    spanStart += phaseAccumulator / filter.GetPhases();
    phaseAccumulator %= filter.GetPhases();
}

/// How many output frames begin before the buffer's last span start.
int LSRCConvertRate::GetFramesInBuffer() const {
    const std::int64_t left = std::int64_t{fill - spanStart} * filter.GetPhases() - phaseAccumulator;
    return static_cast<int>((left + filter.GetStep() - 1) / filter.GetStep());
}

void LSRCConvertRate::MoveOn(int frames) {
    const int phases = filter.GetPhases();
    const std::int64_t last = phaseAccumulator + std::int64_t{frames - 1} * filter.GetStep();
    spanStart += static_cast<int>(last / phases);
    phaseAccumulator = static_cast<int>(last % phases) + filter.GetStep();
}

void LSRCConvertRate::Produce(int* buffer, int frames) {
    const LPolyphaseRun run = {
        .rows = design->rows.data(),
        .middle = design->middle.data(),
        .phases = filter.GetPhases(),
        .stepWhole = filter.GetStep() / filter.GetPhases(),
        .stepPart = filter.GetStep() % filter.GetPhases(),
        .shift = outputShift,
        .rounding = rounding,
    };
    Kernels().convolve(run, phaseAccumulator, GetNegated(spanStart), buffer, frames);
}

/// The same from the work buffer: for the smallest of all samples, whose magnitude no 32 bits hold, the
/// largest, which rounding wraps, and what stands beside them.
void LSRCConvertRate::ProduceWide(int* buffer, int frames) const {
    for (int i = 0; i < frames; ++i) {
        const std::int64_t at = phaseAccumulator + std::int64_t{i} * filter.GetStep();
        const int* row = filter.GetRow(static_cast<int>(at % filter.GetPhases()));
        const std::int64_t frame = spanStart + at / filter.GetPhases();
        for (int c = 0; c < channels; ++c) {
            const int* samples =
                &work[static_cast<std::size_t>(frame) * channels + static_cast<std::size_t>(c)];
            std::int64_t sums[2] = {0, 0};
            for (int t = 0; t < Taps; ++t)
                sums[t > HalfTaps ? 1 : 0] += std::int64_t{row[t]} * samples[t * channels];
            buffer[i * channels + c] = WrapToInt(((sums[0] >> 1) + (sums[1] >> 1) + rounding) >> outputShift);
        }
    }
}

LRateConversion::LRateConversion(int inRate, int outRate) {
    const auto add = [&](int rate) {
        stages[count++] = {rate, LRateFraction(inRate, std::max(rate, 1))};
        inRate = rate;
    };
    const bool farBelow = (inRate >> 2) > outRate;
    if (farBelow)
        add(WrapMultiply(2, outRate));
    if (inRate != outRate)
        add(outRate);
}

LSoundSource LRateConversion::OpenSource(const LSoundSource& input) const {
    LSoundSource source = input;
    for (const Stage& stage : GetStages())
        source = LSoundSource::Make<LSRCConvertRate>(source, stage.rate, &stage != &GetStages().back());
    return source;
}

int LRateConversion::ConvertEnd(int end, bool streaming) const {
    for (const Stage& stage : GetStages())
        end = LSRCConvertRate::ConvertEnd(stage.fraction, end, streaming);
    return end;
}

int LRateConversion::ConvertPeak(int peak) const {
    for (std::size_t i = 0; i < count; ++i)
        peak = RaisePeak(peak);
    return peak;
}

LSoundSource LSPConvertRate::OpenSource(const LSoundSource& input) const {
    return input->status == SoundUsable ? LRateConversion(input->sampleRate, rate).OpenSource(input) : input;
}

void LSPConvertSourceRateChannels(int rate, std::uint8_t channels, LSoundSource& source) {
    if (source->channels > channels)
        source = LSPConvChannels(channels).OpenSource(source);
    if (source->sampleRate != rate)
        source = LSPConvertRate(rate).OpenSource(source);
    if (source->channels != channels)
        source = LSPConvChannels(channels).OpenSource(source);
}
