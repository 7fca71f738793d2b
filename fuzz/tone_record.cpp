// Any bytes as a tone data file: read it, then play a hundredth of a second of it, and its end.

#include "input_file.h"
#include "tone/tone_engine.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const InputFile file(data, size);
    SonvireData tone;
    static_cast<void>(tone.ReadFromFile(file.GetPath().c_str()));
    const LSoundSource source = OpenToneEngine(tone);
    std::vector<int> block(std::size_t{source->channels} * 441);
    source->Read(block.data(), 441);
    source->Seek(source->GetEndSample());
    source->Read(block.data(), 100);
    return 0;
}
