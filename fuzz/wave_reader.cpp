// Any bytes as a WAVE file: open it, read it in odd sizes, seek about, and convert it.

#include "input_file.h"
#include "sound/files/wave_file.h"
#include "sound/stages/convert_rate.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const InputFile file(data, size);
    LSoundSource source = LWaveFile::OpenSource(file.GetPath().c_str());
    std::vector<int> block(std::size_t{source->channels} * 999);
    for (const int frames : {1, 77, 999}) {
        source->Read(block.data(), frames);
        for (const int place : {-5, 1, source->GetEndSample() / 2, source->GetEndSample(), 0x7FFFFFFF}) {
            source->Seek(place);
            source->Read(block.data(), frames);
        }
    }
    source->Seek(0);
    LSPConvertSourceRateChannels(2 * source->sampleRate, 2, source); // whose filter is made in no time
    block.resize(std::size_t{source->channels} * 1000);
    source->Read(block.data(), 1000);
    source->Seek(-500);
    source->Read(block.data(), 1000);
    return 0;
}
