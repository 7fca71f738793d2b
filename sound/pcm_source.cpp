#include "sound/pcm_source.h"

#include "sound/wave_format.h"

#include <algorithm>

LSRCPCMFileBase::LSRCPCMFileBase(LReadFile&& opened, int rate, std::uint8_t channelCount, int limit,
                                 std::uint32_t bytesPerSample, std::uint32_t dataBytes)
    : LSoundSourceBase(rate, channelCount, limit),
      file(std::move(opened)),
      bytesPerFrame(channelCount * bytesPerSample),
      dataStart(file.GetOffset()) {
    if (bytesPerFrame == 0) {
        status = SoundInvalidFormat;
        bytesPerFrame = 2;
    }
    if (!file.IsOpen())
        status = SoundCannotOpen;
    endSample = IsDataLengthKnown(dataBytes) ? static_cast<int>(dataBytes / bytesPerFrame) : EndUnknown;
}

int LSRCPCMFileBase::GetEndSample() const {
    if (endSample != EndUnknown)
        return endSample;
    // The length stands right before the data. It is read in the host's byte order on purpose, as a writer on
    // the same machine leaves it.
    const std::int64_t offset = file.GetOffset();
    std::uint32_t dataBytes = UnknownDataBytes;
    file.SeekTo(dataStart - static_cast<int>(sizeof dataBytes));
    if (file.Read(&dataBytes, sizeof dataBytes) == sizeof dataBytes && IsDataLengthKnown(dataBytes))
        endSample = static_cast<int>(dataBytes / bytesPerFrame);
    file.SeekTo(offset);
    return endSample != EndUnknown ? endSample : WrapToInt((file.GetSize() - dataStart) / bytesPerFrame);
}

void LSRCPCMFileBase::Seek(int sample) {
    position = sample;
    const int inFile = sample > 0 ? std::min(GetEndSample(), sample) : 0;
    file.SeekTo(dataStart + std::int64_t{inFile} * bytesPerFrame);
}

LSRCPCMFileBase::Request LSRCPCMFileBase::Advance(int count) {
    position = WrapAdd(position, count);
    if (position <= 0)
        return {count, 0};
    int wanted = std::min(count, position);
    const int leading = count - wanted;
    if (endSample != EndUnknown && position > endSample)
        wanted = static_cast<int>(
            std::max<std::int64_t>(0, std::int64_t{wanted} - (std::int64_t{position} - endSample)));
    return {leading, wanted};
}

template <class Format>
LSRCPCMFile<Format>::LSRCPCMFile(LReadFile&& opened, int rate, std::uint8_t channelCount,
                                 std::uint32_t dataBytes)
    : LSRCPCMFileBase(std::move(opened), rate, channelCount, FullScale16, Format::bytesPerSample, dataBytes),
      stored(std::size_t{channels} * MaxBlockFrames) {}

template <class Format>
void LSRCPCMFile<Format>::Read(int* buffer, int frames) {
    while (frames > 0) {
        const int count = std::min(frames, MaxBlockFrames);
        ReadBlock(buffer, count);
        buffer += std::ptrdiff_t{count} * channels;
        frames -= count;
    }
}

template <class Format>
void LSRCPCMFile<Format>::ReadBlock(int* buffer, int frames) {
    const Request request = Advance(frames);
    const int leading = request.leading * channels;
    std::fill_n(buffer, leading, 0);
    const int got = ReadSamples(buffer + leading, request.wanted);
    std::fill(buffer + leading + got, buffer + frames * channels, 0);
}

/// Answers how many single samples the file had, which is fewer than asked for where it is cut short.
template <class Format>
int LSRCPCMFile<Format>::ReadSamples(int* buffer, int frames) {
    const std::size_t bytes = file.Read(stored.data(), static_cast<std::size_t>(frames) * bytesPerFrame);
    const int samples = static_cast<int>(bytes / Format::bytesPerSample);
    ConvertSamplesIn<Format>(buffer, stored.data(), samples);
    return samples;
}

template class LSRCPCMFile<LSFU8>;
template class LSRCPCMFile<LSFLE16>;
