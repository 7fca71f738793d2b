#include "measure/mean_spectrum.h"

#include "measure/kaiser.h"

#include <algorithm>
#include <bit>
#include <unsupported/Eigen/FFT>
#include <utility>

namespace {

constexpr std::size_t Overlap = 4;     ///< segments begin within the frames of one
constexpr int DenseSegments = 128;     ///< before some are left out
constexpr std::size_t MinFrames = 64;  ///< of a sound
constexpr double SegmentSeconds = 1.2; ///< at least

using Bins = std::vector<std::complex<double>>;

void AddProducts(Bins& sums, const Bins& a, const Bins& b) {
    for (std::size_t i = 0; i < sums.size(); ++i) // by parts: the operator looks for infinities
        sums[i] += std::complex{a[i].real() * b[i].real() + a[i].imag() * b[i].imag(),
                                a[i].imag() * b[i].real() - a[i].real() * b[i].imag()};
}

} // namespace

std::size_t GetSegmentFrames(int rate) {
    return std::bit_ceil(static_cast<std::size_t>(std::clamp(SegmentSeconds * rate, 1024.0, 0x1p20)));
}

struct MeanSpectrum::State {
    struct Input {
        std::vector<double> pending;
        Bins bins, before;
    };

    void Start(std::size_t segmentFrames);
    void TakeAll();
    void TakeAt(std::size_t start, bool isNeighbour);
    void Transform(Input& input, std::size_t start);
    void Drop(std::size_t frames);
    void Average();

    Spectrum spectrum;
    std::size_t longest; ///< a segment may be
    std::vector<Input> inputs;
    std::size_t next = 0;   ///< where the next segment begins, in what is pending
    bool followsOn = false; ///< the next one follows the last one by a hop
    std::size_t end = 0;    ///< of the last segment, in what is pending
    std::vector<double> window, windowed;
    Eigen::FFT<double> transform{Eigen::FFT<double>::impl_type(), Eigen::FFT<double>::HalfSpectrum};
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
    const std::size_t left = state->inputs[0].pending.size();
    if (state->end < left)
        state->TakeAt(left - state->spectrum.segmentFrames, false);
    state->Average();
    return std::move(state->spectrum);
}

void MeanSpectrum::State::Start(std::size_t segmentFrames) {
    spectrum.segmentFrames = segmentFrames;
    spectrum.hopFrames = segmentFrames / Overlap;
    window = MakeKaiserWindow(Spectrum::WindowBeta, segmentFrames);
    windowed.resize(segmentFrames);
    const std::size_t bins = segmentFrames / 2 + 1;
    for (Spectrum::Channel& channel : spectrum.channels)
        channel = {std::vector<double>(bins), Bins(bins)};
    if (inputs.size() == 2)
        spectrum.cross.resize(bins);
}

/// All segments that are there as a whole, of which the last one's frames are kept.
void MeanSpectrum::State::TakeAll() {
    if (spectrum.segmentFrames == 0)
        Start(longest);
    const std::size_t frames = inputs[0].pending.size(), segment = spectrum.segmentFrames;
    while (next + segment <= frames) {
        TakeAt(next, followsOn);
        end = next + segment;
        followsOn = spectrum.segments < DenseSegments || spectrum.segments % 2 != 0;
        next += followsOn ? spectrum.hopFrames : 2 * segment - spectrum.hopFrames;
    }
    Drop(std::min(next, frames - segment));
}

void MeanSpectrum::State::Drop(std::size_t frames) {
    for (Input& input : inputs)
        input.pending.erase(input.pending.begin(),
                            input.pending.begin() + static_cast<std::ptrdiff_t>(frames));
    next -= frames;
    end -= std::min(end, frames);
}

void MeanSpectrum::State::TakeAt(std::size_t start, bool isNeighbour) {
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        Input& input = inputs[i];
        Spectrum::Channel& sums = spectrum.channels[i];
        Transform(input, start);
        for (std::size_t k = 0; k < sums.power.size(); ++k)
            sums.power[k] += std::norm(input.bins[k]);
        if (isNeighbour)
            AddProducts(sums.advance, input.bins, input.before);
    }
    if (inputs.size() == 2)
        AddProducts(spectrum.cross, inputs[0].bins, inputs[1].bins);
    for (Input& input : inputs)
        input.bins.swap(input.before);
    ++spectrum.segments;
}

void MeanSpectrum::State::Transform(Input& input, std::size_t start) {
    for (std::size_t i = 0; i < windowed.size(); ++i)
        windowed[i] = window[i] * input.pending[start + i];
    transform.fwd(input.bins, windowed);
}

void MeanSpectrum::State::Average() {
    double unit = 0;
    for (const double value : window)
        unit += value * value;
    unit *= static_cast<double>(window.size()) * spectrum.segments / 2; // two sides
    for (Spectrum::Channel& channel : spectrum.channels) {
        for (double& power : channel.power)
            power /= unit;
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
