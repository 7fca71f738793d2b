#include "app/window/sound_survey.h"

#include "app/window/sound_figures.h"
#include "app/window/spectrum_bins.h"
#include "app/window/wave_envelope.h"
#include "measure/mean_spectrum.h"
#include "measure/tone_meter.h"
#include "sys/background.h"
#include "tone/note_name.h"

#include <chrono>
#include <cmath>

namespace {

constexpr double LeastLineBins = 16;                            // above 0 Hz, from where on lines are seen
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

/// The same of what was measured.
double FindLowestHz(const ToneFigures& figures) {
    if (!figures.tones.empty())
        return figures.tones[0].hz;
    return figures.isSteady || figures.strongest.empty() ? 0 : figures.strongest[0].hz;
}

bool IsSine(const SonvireData& tone) {
    return tone.HasComponents() && tone.waveform == ToneSine && tone.GetToneCount() == 1;
}

/// In high quality it is the same every time.
bool IsPassingNoise(const SoundRequest& request) {
    return request.highRate == 0 && !request.tone.HasComponents() && !request.tone.IsList();
}

/// Reads block by block, and keeps what is known so far.
class Survey {
public:
    Survey(const SoundRequest& request, const RequestedSound& opened)
        : lowestHz(GetLowestHz(request.tone)),
          isSine(IsSine(request.tone)),
          isPassingNoise(IsPassingNoise(request)),
          loweredDb(opened.loweredDb),
          reader(*opened.reader),
          channels(static_cast<std::size_t>(reader.format.channels), Channel(reader.format.bits)),
          block(BlockFrames * channels.size()),
          whole(reader.format.rate, channels.size()) {}

    /// The next frames; none at the end.
    std::vector<ChannelBlock> Read() {
        const std::size_t count = channels.size();
        const std::span<const double> read = std::span(block).first(reader.Read(block) * count);
        std::vector<ChannelBlock> blocks;
        for (std::size_t c = 0; c < count; ++c)
            blocks.emplace_back(channels[c].Add(read, c, count));
        whole.Add(blocks);
        frames += blocks[0].size();
        hasEnded = read.empty() || static_cast<std::int64_t>(frames) == reader.length;
        return blocks;
    }
    /// It needs no more.
    bool IsDone() const {
        const double most =
            reader.length == FrameReader::Endless ? SoundSurvey::EndlessSeconds : SoundSurvey::MostSeconds;
        return hasEnded || GetSeconds() >= most;
    }
    bool HasBegun() const { return hasEnded || frames >= SoundSurvey::FirstFrames; }
    MeanSpectrum MakeSpectrum() const { return {reader.format.rate, channels.size()}; }
    /// Of all that was read; once.
    Spectrum FinishSpectrum() { return whole.Finish(); }

    LShownSoundPtr Show(const Spectrum& spectrum) const {
        auto shown = std::make_shared<LShownSound>();
        shown->rate = reader.format.rate;
        shown->seconds = GetSeconds();
        shown->framesPerRange = static_cast<double>(channels[0].envelope.GetWidth());
        shown->nameHz = DescribeNote;
        for (std::size_t c = 0; c < channels.size(); ++c)
            shown->channels.push_back(ShowChannel(channels[c], spectrum, c));
        ShowLevels(*shown);
        ShowLines(*shown, spectrum);
        return shown;
    }

private:
    struct Channel {
        explicit Channel(int bits) : level(bits) {}

        /// Its samples of these frames, until the next ones.
        ChannelBlock Add(std::span<const double> read, std::size_t first, std::size_t step) {
            last.clear();
            for (std::size_t i = first; i < read.size(); i += step) {
                last.push_back(read[i]);
                const auto sample = static_cast<float>(read[i]);
                envelope.Add(sample);
                if (samples.size() < KeptFrames)
                    samples.push_back(sample);
            }
            level.Add(last);
            return last;
        }

        std::vector<double> last;
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
                                        .limiterDb = reader.GetLimiterDb().value_or(0),
                                        .loweredDb = loweredDb,
                                        .seconds = GetSeconds(),
                                        .isAll = hasEnded});
    }

    void ShowLines(LShownSound& shown, const Spectrum& spectrum) const {
        std::vector<ToneFigures> figures;
        for (std::size_t c = 0; c < channels.size(); ++c)
            figures.push_back(MeasureTones(spectrum, c));
        shown.lines = DescribeLines(figures, isSine);
        if (spectrum.segmentFrames == 0)
            shown.lines = "too short for a spectrum";
        else if (lowestHz > 0 && lowestHz < LeastLineBins * spectrum.GetHzPerBin())
            shown.lines = "too low for its lines to be told";
        else if (isPassingNoise)
            shown.lines = "one of many: each time it plays it is another noise";
        shown.lowestHz = lowestHz > 0 ? lowestHz : FindLowestHz(figures[0]);
        if (spectrum.segmentFrames > 0)
            shown.hzPerBin = spectrum.GetHzPerBin();
    }
    double GetSeconds() const { return static_cast<double>(frames) / reader.format.rate; }

    double lowestHz;
    bool isSine, isPassingNoise;
    double loweredDb;
    FrameReader& reader;
    std::vector<Channel> channels;
    std::vector<double> block;
    MeanSpectrum whole;
    std::size_t frames = 0;
    bool hasEnded = false;
};

} // namespace

void SoundSurvey::Run(const SoundRequest& request, const std::function<bool()>& isWanted,
                      const std::function<void(LShownSoundPtr)>& show) {
    const RequestedSound opened = OpenRequest(request);
    if (opened.failure) {
        auto shown = std::make_shared<LShownSound>();
        shown->figures = {{"The tone can't be shown: it " + opened.failure.GetReason() + ".", true}};
        return show(std::move(shown));
    }
    Survey survey(request, opened);
    MeanSpectrum beginning = survey.MakeSpectrum();
    while (isWanted() && !survey.HasBegun())
        beginning.Add(survey.Read());
    if (!isWanted())
        return;
    const Spectrum spectrum = beginning.Finish();
    show(survey.Show(spectrum));

    LowerBackgroundPriority();
    auto shownAt = std::chrono::steady_clock::now();
    while (isWanted() && !survey.IsDone()) {
        static_cast<void>(survey.Read());
        if (const auto now = std::chrono::steady_clock::now(); now - shownAt > Between) {
            shownAt = now;
            show(survey.Show(spectrum));
        }
    }
    if (isWanted())
        show(survey.Show(survey.FinishSpectrum()));
}
