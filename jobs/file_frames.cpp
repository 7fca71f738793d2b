#include "hires/files/file_frames.h"

#include "jobs/frame_reader.h"

namespace {

class FileReader : public FrameReader {
public:
    FileReader(std::unique_ptr<HiresFileFrames> opened, const std::string& name,
               std::shared_ptr<LSourceNews> sourceNews)
        : FrameReader({.rate = opened->GetFacts().rate,
                       .channels = opened->GetFacts().channels,
                       .bits = opened->GetFacts().bits},
                      opened->GetLength().value_or(Unknown)),
          file(std::move(opened)),
          path(name),
          news(std::move(sourceNews)) {}

    std::size_t Read(std::span<double> out) override {
        const std::size_t frames =
            file->Read(out.data(), out.size() / static_cast<std::size_t>(format.channels));
        if (frames == 0 && file->HasMore())
            news->Tell({path, "is longer than it tells; the rest is left out"});
        return frames;
    }

private:
    std::unique_ptr<HiresFileFrames> file;
    std::string path;
    std::shared_ptr<LSourceNews> news;
};

} // namespace

FrameInput ReadFileFrames(const std::string& path) {
    auto file = std::make_unique<HiresFileFrames>(path);
    const HiresFileFacts& facts = file->GetFacts();
    if (facts.failure)
        return {.reader = nullptr, .failure = facts.failure};
    FrameInput input;
    if (const std::int64_t missing = facts.frames.value_or(0) - file->GetLength().value_or(0); missing > 0)
        input.news->Tell({path, "is cut short; " + std::to_string(missing) + " frames are missing", false});
    input.reader = std::make_unique<FileReader>(std::move(file), path, input.news);
    return input;
}
