#include "jobs/hashed_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>

HashedReader::HashedReader(std::unique_ptr<FrameReader> wrapped, int bits, bool triesChanges)
    : FrameReader(wrapped->format, wrapped->length),
      reader(std::move(wrapped)),
      highest(bits > 0 ? 1 - std::ldexp(2, -bits) : std::numeric_limits<double>::infinity()) {
    using enum Change;
    hashes.push_back({None, SampleHash(bits)});
    if (triesChanges)
        hashes.push_back({Inverted, SampleHash(bits)});
    if (triesChanges && format.channels == 2)
        for (const Change each : {Swapped, FirstInverted, SecondInverted})
            hashes.push_back({each, SampleHash(bits)});
}

std::size_t HashedReader::Read(std::span<double> out) {
    const std::size_t frames = reader->Read(out);
    const std::span<const double> read = out.first(frames * static_cast<std::size_t>(format.channels));
    hashes.front().hash.Add(read);
    for (ChangedHash& each : std::span(hashes).subspan(1)) {
        changed.assign(read.begin(), read.end());
        Apply(each.change, changed);
        each.hash.Add(changed);
    }
    return frames;
}

void HashedReader::Apply(Change change, std::span<double> samples) const {
    const std::size_t first = change == Change::SecondInverted ? 1 : 0;
    const std::size_t step = change == Change::Inverted ? 1 : 2;
    for (std::size_t i = first; i < samples.size(); i += step)
        if (change == Change::Swapped)
            std::swap(samples[i], samples[i + 1]);
        else
            samples[i] = std::min(-samples[i], highest);
}

std::optional<HashedReader::Change> HashedReader::FindChange(const std::string& sha256) {
    for (ChangedHash& each : hashes)
        if (each.hash.Finish() == sha256)
            return each.change;
    return {};
}
