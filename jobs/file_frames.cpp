#include "jobs/frame_reader.h"

FrameInput ReadFileFrames(const std::string& path) {
    return ReadRenderedHires(OpenHiresInput(path, {}), {.samples = HiresSamples::Int32});
}
