// Any bytes as a tone, a WAVE file and a list that may play both, rendered as a whole: from the list file to
// the WAVE file, with conversions and limiter. The first four bytes choose the output's format and where the
// files begin.

#include "jobs/render_file.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

/// Where the files of a run are, in memory.
const std::string& GetFolder() {
    static const std::string folder = [] {
        std::string name = "/dev/shm/sonvire-fuzz-XXXXXX";
        if (!mkdtemp(name.data()))
            std::abort();
        std::filesystem::current_path(name);
        static const struct AtEnd {
            std::string path;
            ~AtEnd() { std::filesystem::remove_all(path); }
        } atEnd{name};
        return name;
    }();
    return folder;
}

void Write(const char* name, const std::string& bytes) {
    std::ofstream(GetFolder() + "/" + name, std::ios::binary) << bytes;
}

/// A user who stops after a few blocks.
struct Impatient {
    void SetText(int /*control*/, const char* /*text*/) {}
    void PBSetProgress(int /*control*/, double /*fraction*/) {}
    bool IsToStop() { return ++blocks > 3; }

    int blocks = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4)
        return 0;
    const std::string bytes(data + 4, data + size);
    const std::size_t first = std::min<std::size_t>(bytes.size(), data[1] * 8);
    const std::size_t second = std::min<std::size_t>(bytes.size(), first + data[2] * 8);
    Write("list.tdl", bytes.substr(0, first));
    Write("a.tdf", bytes.substr(first, second - first));
    Write("b.wav", bytes.substr(second));
    constexpr int rates[] = {0, 44100, 22050, 48000, 8000, 96000, 4000, 196000};
    RenderTarget target{.path = GetFolder() + "/out.wav", .format = {.bits = (data[0] & 1) != 0 ? 8 : 16}};
    if (const int rate = rates[data[0] >> 1 & 7])
        target.format.rate = rate;
    if (const int channels = data[0] >> 4 & 3; channels == 1 || channels == 2)
        target.format.channels = static_cast<std::uint8_t>(channels);
    const auto run = [](LPRSourceToSink& job) {
        Impatient user;
        return Process(user, job);
    };
    static_cast<void>(RenderToFile(OpenSoundInput(GetFolder() + "/list.tdl", {}, SoundLength::Finite), target,
                                   {.confirm = [](const auto&) { return true; }, .run = run}));
    return 0;
}
