// Any bytes as a tone data file: read it, then render a second of it.

#include "input_file.h"
#include "sound/stages/peak_limit.h"
#include "tone/tone_engine.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const InputFile file(data, size);
    SonvireData tone;
    static_cast<void>(tone.ReadFromFile(file.GetPath().c_str()));
    const LSoundSource source = LSPPeakLimit(FullScale16).OpenSource(OpenToneEngine(tone));
    std::vector<int> block(std::size_t{source->channels} * 4410);
    for (int tenth = 0; tenth < 10; ++tenth)
        source->Read(block.data(), 4410);
    source->Seek(source->GetEndSample());
    source->Read(block.data(), 4410);
    return 0;
}
