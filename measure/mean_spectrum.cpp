#include "measure/mean_spectrum.h"

#include "measure/alike_watch.h"
#include "measure/kaiser.h"
#include "measure/kept_by_size.h"
#include "measure/real_transform.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <future>
#include <optional>
#include <utility>

namespace {

constexpr std::size_t Overlap = 4;     ///< segments begin within the frames of one
constexpr int SegmentsAtOnce = 16;     ///< before a second thread is worth while
constexpr std::size_t SparseHops = 16; ///< from a pair of segments to the next one, where all is alike
constexpr std::size_t MinFrames = 64;  ///< of a sound
constexpr double SegmentSeconds = 1.2; ///< at least

void AddProducts(Bins& sums, const Bins& a, const Bins& b, double share) {
    for (std::size_t i = 0; i < sums.size(); ++i) // by parts: the operator looks for infinities
        sums[i] += std::complex{share * (a[i].real() * b[i].real() + a[i].imag() * b[i].imag()),
                                share * (a[i].imag() * b[i].real() - a[i].real() * b[i].imag())};
}

const std::vector<double>& GetWindow(std::size_t frames) {
    static auto& kept = *new KeptBySize<std::vector<double>>;
    return kept.Get(frames, [](std::size_t count) { return MakeKaiserWindow(Spectrum::WindowBeta, count); });
}

} // namespace

std::size_t GetSegmentFrames(int rate) {
    return std::bit_ceil(static_cast<std::size_t>(std::clamp(SegmentSeconds * rate, 1024.0, 0x1p20)));
}

struct MeanSpectrum::State {
    struct Segment {
        std::size_t start; ///< in what is pending
        bool followsOn;    ///< the one before by a hop
        double share;      ///< for how many hops it stands
    };
    struct Input {
        std::vector<double> pending, taken;
        Bins bins, before;
    };

    void Start(std::size_t segmentFrames);
    void TakeAll();
    void TakeLast();
    std::vector<Segment> ListNext();
    bool IsAlike(std::size_t start);
    double GetShare(bool isAlike);
    void HandOver(std::vector<Segment> segments, std::size_t behind);
    void Look(const Segment& segment);
    void Average();

    Spectrum spectrum;
    std::size_t longest; ///< a segment may be
    std::vector<Input> inputs;
    std::optional<AlikeWatch> watch;
    std::int64_t hop = 0;   ///< the next one's number
    std::size_t next = 0;   ///< where it begins, in what is pending
    bool followsOn = false; ///< the segment there follows one by a hop
    std::size_t end = 0;    ///< of the last segment, in what is pending
    double leftOut = 0;     ///< hops that no segment stands for yet
    double shares = 0;      ///< of all segments
    std::vector<double> windowed;
    std::unique_ptr<RealTransform> transform;
    std::future<void> work; ///< on what was taken and on the sums; destroyed first, which waits for it
};

MeanSpectrum::MeanSpectrum(int rate, std::size_t channels) : state(std::make_unique<State>()) {
    state->spectrum.rate = rate;
    state->spectrum.channels.resize(channels);
    state->inputs.resize(channels);
    state->longest = GetSegmentFrames(rate);
}

MeanSpectrum::~MeanSpectrum() = default;

void MeanSpectrum::Add(std::span<const ChannelBlock> channels) {
    const std::size_t frames = channels[0].size();
    for (std::size_t done = 0; done < frames;) {
        const std::size_t count =
            std::min(frames - done, 2 * state->longest - state->inputs[0].pending.size());
        for (std::size_t i = 0; i < channels.size(); ++i) {
            const ChannelBlock part = channels[i].subspan(done, count);
            state->inputs[i].pending.insert(state->inputs[i].pending.end(), part.begin(), part.end());
        }
        done += count;
        if (state->inputs[0].pending.size() == 2 * state->longest)
            state->TakeAll();
    }
}

Spectrum MeanSpectrum::Finish() {
    if (state->spectrum.segmentFrames == 0) {
        const std::size_t frames = state->inputs[0].pending.size();
        if (frames < MinFrames)
            return std::move(state->spectrum);
        state->Start(std::bit_floor(frames / 2));
    }
    state->TakeAll();
    state->TakeLast();
    state->Average();
    return std::move(state->spectrum);
}

void MeanSpectrum::State::Start(std::size_t segmentFrames) {
    spectrum.segmentFrames = segmentFrames;
    spectrum.hopFrames = segmentFrames / Overlap;
    windowed.resize(segmentFrames);
    transform = std::make_unique<RealTransform>(segmentFrames);
    watch.emplace(inputs.size(), 2 * spectrum.hopFrames);
    const std::size_t bins = segmentFrames / 2 + 1;
    for (Spectrum::Channel& channel : spectrum.channels)
        channel = {std::vector<double>(bins), std::vector<double>(bins), Bins(bins)};
    if (inputs.size() == 2)
        spectrum.cross.resize(bins);
}

/// All segments that are there as a whole. What the next ones or the last one may need stays pending.
void MeanSpectrum::State::TakeAll() {
    if (spectrum.segmentFrames == 0)
        Start(longest);
    std::vector<Segment> segments = ListNext();
    const std::size_t behind = std::min(next, inputs[0].pending.size() - spectrum.segmentFrames);
    HandOver(std::move(segments), behind);
    next -= behind;
    end -= std::min(end, behind);
}

void MeanSpectrum::State::TakeLast() {
    const std::size_t left = inputs[0].pending.size();
    if (end < left) {
        ++spectrum.segments;
        ++shares;
        HandOver({{left - spectrum.segmentFrames, false, 1}}, left);
    }
    work.get();
}

std::vector<MeanSpectrum::State::Segment> MeanSpectrum::State::ListNext() {
    std::vector<Segment> segments;
    for (; next + spectrum.segmentFrames <= inputs[0].pending.size(); next += spectrum.hopFrames) {
        const double share = GetShare(IsAlike(next));
        if (share > 0) {
            segments.push_back({next, followsOn, share});
            end = next + spectrum.segmentFrames;
            shares += share;
            ++spectrum.segments;
        }
        followsOn = share > 0;
        ++hop;
    }
    return segments;
}

/// By the middle half of a segment, which is what its window leaves.
bool MeanSpectrum::State::IsAlike(std::size_t start) {
    std::vector<ChannelBlock> stretches;
    for (const Input& input : inputs)
        stretches.push_back(
            ChannelBlock(input.pending).subspan(start + spectrum.hopFrames - 1, 2 * spectrum.hopFrames + 1));
    return watch->IsAlike(stretches);
}

/// For how many hops a segment at the next one stands; 0 where it is left out.
double MeanSpectrum::State::GetShare(bool isAlike) {
    if (!isAlike)
        return 1;
    const bool isFirst = hop % SparseHops == 0, isSecond = hop % SparseHops == 1;
    if (!isFirst && !isSecond) {
        ++leftOut;
        return 0;
    }
    const double standsFor = isFirst ? leftOut / 2 : leftOut;
    leftOut -= standsFor;
    return 1 + standsFor;
}

/// Has them looked at while the next ones come in, and keeps what lies behind.
void MeanSpectrum::State::HandOver(std::vector<Segment> segments, std::size_t behind) {
    const auto offset = static_cast<std::ptrdiff_t>(behind);
    if (segments.empty()) {
        for (Input& input : inputs)
            input.pending.erase(input.pending.begin(), input.pending.begin() + offset);
        return;
    }
    if (work.valid())
        work.get();
    for (Input& input : inputs) {
        input.taken.swap(input.pending);
        input.pending.assign(input.taken.begin() + offset, input.taken.end());
    }
    const auto when = spectrum.segments > SegmentsAtOnce ? std::launch::async | std::launch::deferred
                                                         : std::launch::deferred;
    work = std::async(when, [this, segments = std::move(segments)] {
        for (const Segment& segment : segments)
            Look(segment);
    });
}

void MeanSpectrum::State::Look(const Segment& segment) {
    const std::vector<double>& window = GetWindow(windowed.size());
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        Input& input = inputs[i];
        Spectrum::Channel& sums = spectrum.channels[i];
        for (std::size_t k = 0; k < windowed.size(); ++k)
            windowed[k] = window[k] * input.taken[segment.start + k];
        transform->Transform(input.bins, windowed);
        for (std::size_t k = 0; k < sums.power.size(); ++k) {
            const double power = std::norm(input.bins[k]);
            sums.power[k] += segment.share * power;
            sums.squaredPower[k] += segment.share * power * power;
        }
        if (segment.followsOn)
            AddProducts(sums.advance, input.bins, input.before, segment.share);
    }
    if (inputs.size() == 2)
        AddProducts(spectrum.cross, inputs[0].bins, inputs[1].bins, segment.share);
    for (Input& input : inputs)
        input.bins.swap(input.before);
}

void MeanSpectrum::State::Average() {
    if (hop > 0)
        spectrum.lookedAt = std::min(1.0, spectrum.segments / static_cast<double>(hop));
    double unit = 0;
    for (const double value : GetWindow(spectrum.segmentFrames))
        unit += value * value;
    unit *= static_cast<double>(spectrum.segmentFrames) * shares / 2; // two sides
    for (Spectrum::Channel& channel : spectrum.channels) {
        for (double& power : channel.power)
            power /= unit;
        for (double& square : channel.squaredPower)
            square *= shares / (unit * unit);
        channel.power.front() /= 2;
        channel.power.back() /= 2;
    }
    for (std::complex<double>& product : spectrum.cross)
        product /= unit;
    if (!spectrum.cross.empty()) {
        spectrum.cross.front() /= 2;
        spectrum.cross.back() /= 2;
    }
}
