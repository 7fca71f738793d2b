#include "sound/stages/convert_channels.h"

#include <algorithm>

LSRCConvChannels::LSRCConvChannels(const LSoundSource& wrapped, std::uint8_t outChannels)
    : LSoundProcessBase(wrapped),
      work(std::size_t{wrapped->channels} * MaxBlockFrames) {
    channels = outChannels;
    if (channels == 0) {
        channels = 1;
        status = SoundInvalidFormat;
    }
}

int LSRCConvChannels::ReadInput(int framesWanted) {
    const int frames = std::min(framesWanted, MaxBlockFrames);
    input->Read(work.data(), frames);
    return frames;
}

void LSRCConvStereoMono::Read(int* buffer, int frames) {
    while (frames > 0) {
        const int got = ReadInput(frames);
        const int* pairs = work.data();
        for (int i = 0; i < got; ++i)
            buffer[i] = WrapAdd(pairs[2 * i], pairs[2 * i + 1]);
        buffer += got;
        frames -= got;
    }
}

void LSRCConvMonoStereo::Read(int* buffer, int frames) {
    while (frames > 0) {
        const int got = ReadInput(frames);
        for (int i = 0; i < got; ++i)
            buffer[2 * i] = buffer[2 * i + 1] = work[static_cast<std::size_t>(i)];
        buffer += 2 * got;
        frames -= got;
    }
}

LSoundSource LSPConvChannels::OpenSource(const LSoundSource& input) const {
    if (input->status != SoundUsable)
        return input;
    if (input->channels == 2 && channels == 1)
        return LSoundSource::Make<LSRCConvStereoMono>(input);
    if (input->channels == 1 && channels == 2)
        return LSoundSource::Make<LSRCConvMonoStereo>(input);
    return input;
}
