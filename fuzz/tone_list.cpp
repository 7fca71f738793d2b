// Any bytes as a tone list: read it, open it, play a bit of it, seek in it.

#include "input_file.h"
#include "tone/tone_list_report.h"
#include "tone/tone_list_source.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const InputFile file(data, size);
    const LSoundSource source = OpenToneList(file.GetPath());
    std::vector<int> block(std::size_t{source->channels} * 3000);
    source->Read(block.data(), 3000);
    for (const int place : {source->GetEndSample(), -10, 5, 0x7FFFFFFF}) {
        source->Seek(place);
        source->Read(block.data(), 100);
    }
    ExamineToneList(file.GetPath());
    return 0;
}
