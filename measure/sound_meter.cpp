#include "measure/sound_meter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t BlockFrames = 4096;
constexpr double MostUsable = 1e6;

} // namespace

SoundMeter::SoundMeter(int rate, std::size_t channelCount, int bits)
    : channels(channelCount, {LevelMeter(bits), TruePeakMeter(), JumpFinder(rate, bits), {}}),
      spectrum(rate, channelCount) {}

void SoundMeter::Add(std::span<const double> frames) {
    while (!frames.empty()) {
        const std::size_t count = std::min(frames.size(), BlockFrames * channels.size());
        TakeApart(frames.first(count));
        frames = frames.subspan(count);
        std::vector<ChannelBlock> blocks;
        for (Channel& each : channels) {
            each.level.Add(each.block);
            each.truePeak.Add(each.block);
            each.jumps.Add(each.block);
            blocks.emplace_back(each.block);
        }
        if (blocks.size() == 2)
            stereo.Add(blocks[0], blocks[1]);
        spectrum.Add(blocks);
    }
}

void SoundMeter::TakeApart(std::span<const double> frames) {
    const std::size_t step = channels.size();
    for (std::size_t c = 0; c < step; ++c) {
        std::vector<double>& block = channels[c].block;
        block.resize(frames.size() / step);
        for (std::size_t i = 0; i < block.size(); ++i) {
            const double sample = frames[i * step + c];
            const bool isUsable = std::abs(sample) <= MostUsable;
            block[i] = isUsable ? sample : 0;
            unusable += !isUsable;
        }
    }
}

SoundFigures::Channel SoundMeter::Channel::Finish(const ToneFigures& tones, int rate) {
    SoundFigures::Channel figures{level.Get(), truePeak.Get(), tones, {}, false};
    if (tones.variation <= JumpFinder::MostVariation)
        figures.jumps = jumps.Finish();
    figures.truePeak = std::max(figures.truePeak, figures.level.GetPeak());
    if (figures.level.wrapped == 0) {
        figures.level.wrapped = figures.jumps.wraps;
        figures.level.firstWrap = figures.jumps.firstWrap;
    }
    const bool isLow = !tones.tones.empty() && tones.tones.back().hz <= rate / 20.0;
    figures.areWrapsKnown =
        isLow || figures.jumps.hasLooked || figures.level.wrapped > 0 || figures.level.GetPeak() < 0.5;
    return figures;
}

SoundFigures SoundMeter::Finish() {
    SoundFigures figures;
    figures.spectrum = spectrum.Finish();
    figures.unusable = unusable;
    std::vector<Level> levels;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        figures.channels.push_back(
            channels[i].Finish(MeasureTones(figures.spectrum, i), figures.spectrum.rate));
        levels.push_back(figures.channels[i].level);
        figures.truePeak = std::max(figures.truePeak, figures.channels[i].truePeak);
    }
    figures.whole = Together(levels);
    if (channels.size() == 2)
        figures.stereo = {stereo.GetLevelRatio(), stereo.GetCorrelation(), MeasureDelay(figures.spectrum)};
    return figures;
}
