#include "app/window/sound_survey.h"

#include "app/window/sound_figures.h"
#include "app/window/spectrum_bins.h"
#include "app/window/wave_envelope.h"
#include "measure/sound_meter.h"
#include "sys/background.h"
#include "tone/note_name.h"

#include <chrono>
#include <cmath>

namespace {

constexpr std::size_t BlockFrames = 4096, KeptFrames = 1 << 19; // 12 s at 44.1 kHz
constexpr auto Between = std::chrono::milliseconds(400);        // what is shown meanwhile

/// Of the components that sound; 0 where the tone has none.
double GetLowestHz(const SonvireData& tone) {
    double lowest = 0;
    const auto take = [&lowest](double hz) {
        if (std::isfinite(hz) && std::abs(hz) > 0)
            lowest = lowest == 0 ? std::abs(hz) : std::min(lowest, std::abs(hz));
    };
    for (unsigned int i = 0; tone.HasComponents() && i < tone.GetToneCount(); ++i) {
        take(tone.startLeftHz[i]);
        if (tone.HasFlag(ToneFlagStereo))
            take(tone.startRightHz[i]);
    }
    return lowest;
}

/// Reads block by block, and keeps what is known so far.
class Survey {
public:
    Survey(const SonvireData& tone, const RequestedSound& opened)
        : lowestHz(GetLowestHz(tone)),
          loweredDb(opened.loweredDb),
          reader(*opened.reader),
          channels(static_cast<std::size_t>(reader.format.channels), Channel(reader.format.bits)),
          block(BlockFrames * channels.size()) {}

    /// The next frames, interleaved; none at the end.
    std::span<const double> Read() {
        const std::size_t count = channels.size();
        const std::span<const double> read = std::span(block).first(reader.Read(block) * count);
        for (std::size_t c = 0; c < count; ++c)
            channels[c].Add(read, c, count);
        frames += read.size() / count;
        hasEnded = read.empty() || static_cast<std::int64_t>(frames) == reader.length;
        return read;
    }
    /// The same, by channels.
    std::vector<ChannelBlock> GetLast() const {
        std::vector<ChannelBlock> blocks;
        for (const Channel& channel : channels)
            blocks.emplace_back(channel.last);
        return blocks;
    }
    bool HasEnded() const { return hasEnded; }
    double GetSeconds() const { return static_cast<double>(frames) / reader.format.rate; }

    /// With the spectrum of `figures`.
    LShownSoundPtr Show(const Spectrum& spectrum, const std::vector<ToneFigures>& figures) const {
        auto shown = std::make_shared<LShownSound>();
        shown->rate = reader.format.rate;
        shown->seconds = GetSeconds();
        shown->nameHz = DescribeNote;
        shown->lowestHz = lowestHz > 0 || figures[0].tones.empty() ? lowestHz : figures[0].tones[0].hz;
        shown->lines = DescribeLines(figures);
        if (spectrum.segmentFrames > 0)
            shown->hzPerBin = spectrum.GetHzPerBin();
        for (std::size_t c = 0; c < channels.size(); ++c)
            shown->channels.push_back(ShowChannel(channels[c], spectrum, c));
        shown->framesPerRange = static_cast<double>(channels[0].envelope.GetWidth());
        ShowLevels(*shown);
        return shown;
    }

private:
    struct Channel {
        explicit Channel(int bits) : level(bits) {}

        void Add(std::span<const double> read, std::size_t first, std::size_t step) {
            last.clear();
            for (std::size_t i = first; i < read.size(); i += step) {
                last.push_back(read[i]);
                const auto sample = static_cast<float>(read[i]);
                envelope.Add(sample);
                if (samples.size() < KeptFrames)
                    samples.push_back(sample);
            }
            level.Add(last);
        }

        std::vector<double> last; ///< of the last block
        std::vector<float> samples;
        WaveEnvelope envelope;
        LevelMeter level;
    };

    static LShownSound::Channel ShowChannel(const Channel& channel, const Spectrum& spectrum,
                                            std::size_t number) {
        const bool isLong = channel.samples.size() == KeptFrames;
        return {.samples = channel.samples,
                .envelope = isLong ? channel.envelope.Get() : std::vector<LShownSound::Range>(),
                .spectrum = MakeBins(spectrum, number)};
    }
    void ShowLevels(LShownSound& shown) const {
        std::vector<Level> levels;
        for (const Channel& channel : channels)
            levels.push_back(channel.level.Get());
        const Level whole = Together(levels);
        shown.peak = whole.GetPeak();
        shown.figures = DescribeLevels({.level = whole,
                                        .limiterDb = reader.GetLimiterDb(),
                                        .loweredDb = loweredDb,
                                        .seconds = GetSeconds(),
                                        .isAll = hasEnded});
    }

    double lowestHz, loweredDb;
    FrameReader& reader;
    std::vector<Channel> channels;
    std::vector<double> block;
    std::size_t frames = 0;
    bool hasEnded = false;
};

std::vector<ToneFigures> MeasureChannels(const Spectrum& spectrum, std::size_t channels) {
    std::vector<ToneFigures> figures;
    for (std::size_t c = 0; c < channels; ++c)
        figures.push_back(MeasureTones(spectrum, c));
    return figures;
}

} // namespace

void SoundSurvey::Run(const SoundRequest& request, const std::function<bool()>& isWanted,
                      const std::function<void(LShownSoundPtr)>& show) {
    const RequestedSound opened = OpenRequest(request);
    if (opened.failure) {
        auto shown = std::make_shared<LShownSound>();
        shown->figures = {{"The tone can't be looked at: it " + opened.failure.GetReason() + ".", true}};
        return show(std::move(shown));
    }
    const FrameReader::Format& format = opened.reader->format;
    const auto channels = static_cast<std::size_t>(format.channels);
    Survey survey(request.tone, opened);
    std::vector<double> begun;
    MeanSpectrum quick(format.rate, channels);
    while (isWanted() && !survey.HasEnded() && survey.GetSeconds() < FirstSeconds) {
        const std::span<const double> read = survey.Read();
        begun.insert(begun.end(), read.begin(), read.end());
        quick.Add(survey.GetLast());
    }
    if (!isWanted())
        return;
    Spectrum spectrum = quick.Finish();
    show(survey.Show(spectrum, MeasureChannels(spectrum, channels)));

    LowerBackgroundPriority();
    SoundMeter meter(format.rate, channels, format.bits);
    meter.Add(begun);
    const double most = opened.reader->length == FrameReader::Endless ? EndlessSeconds : MostSeconds;
    auto shownAt = std::chrono::steady_clock::now();
    while (isWanted() && !survey.HasEnded() && survey.GetSeconds() < most) {
        meter.Add(survey.Read());
        if (const auto now = std::chrono::steady_clock::now(); now - shownAt > Between) {
            shownAt = now;
            show(survey.Show(spectrum, MeasureChannels(spectrum, channels)));
        }
    }
    if (!isWanted())
        return;
    const SoundFigures figures = meter.Finish();
    std::vector<ToneFigures> tones;
    for (const SoundFigures::Channel& channel : figures.channels)
        tones.push_back(channel.tones);
    show(survey.Show(figures.spectrum, tones));
}
