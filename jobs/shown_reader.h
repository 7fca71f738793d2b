#pragma once

#include "jobs/frame_reader.h"

#include <functional>

/// Hands out what another reader does, and shows it to somebody on the way.
class ShownReader : public FrameReader {
public:
    using Show = std::function<void(std::span<const double> samples)>;

    ShownReader(std::unique_ptr<FrameReader> wrapped, Show showTo)
        : FrameReader(wrapped->format, wrapped->length),
          reader(std::move(wrapped)),
          show(std::move(showTo)) {}

    std::size_t Read(std::span<double> out) override {
        const std::size_t frames = reader->Read(out);
        show(out.first(frames * static_cast<std::size_t>(format.channels)));
        return frames;
    }
    std::optional<double> GetLimiterDb() const override { return reader->GetLimiterDb(); }

private:
    std::unique_ptr<FrameReader> reader;
    Show show;
};
