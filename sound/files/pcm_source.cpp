#include "sound/files/pcm_source.h"

#include "sound/files/wave_format.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

/// Who writes a file of unknown length does it at least as often.
constexpr int WriterSeconds = 5;

} // namespace

LSRCPCMFileBase::LSRCPCMFileBase(LReadFile&& opened, int rate, std::uint8_t channelCount, int limit,
                                 std::uint32_t bytesPerSample, std::uint32_t dataBytes)
    : LSoundSourceBase(rate, channelCount, limit),
      file(std::move(opened)),
      bytesPerFrame(channelCount * bytesPerSample),
      dataStart(file.GetOffset()),
      lastSize(file.GetSize()) {
    if (bytesPerFrame == 0) {
        status = SoundInvalidFormat;
        bytesPerFrame = 2;
    }
    if (!file.IsOpen())
        status = SoundCannotOpen;
    if (IsDataLengthKnown(dataBytes))
        endSample = static_cast<int>(dataBytes / bytesPerFrame);
    else
        endSample = file.GetState().GetSecondsUnchanged() < WriterSeconds ? EndUnknown : CountFramesInFile();
}

int LSRCPCMFileBase::CountFramesInFile() const {
    return WrapToInt((file.GetSize() - dataStart) / bytesPerFrame);
}

bool LSRCPCMFileBase::HasStoppedGrowing() const {
    const std::int64_t size = file.GetSize();
    const Clock::time_point now = Clock::now();
    if (std::exchange(lastSize, size) != size)
        lastGrowth = now;
    return now - lastGrowth >= std::chrono::seconds(WriterSeconds);
}

int LSRCPCMFileBase::GetEndSample() const {
    if (endSample != EndUnknown)
        return endSample;
    // The length stands right before the data.
    // Kept quirk: it is read in the host's byte order, as a writer on the same machine leaves it.
    const std::int64_t offset = file.GetOffset();
    std::uint32_t dataBytes = UnknownDataBytes;
    file.SeekTo(dataStart - static_cast<int>(sizeof dataBytes));
    if (file.Read(&dataBytes, sizeof dataBytes) == sizeof dataBytes && IsDataLengthKnown(dataBytes))
        endSample = static_cast<int>(dataBytes / bytesPerFrame);
    file.SeekTo(offset);
    if (endSample == EndUnknown && HasStoppedGrowing())
        endSample = CountFramesInFile();
    return endSample != EndUnknown ? endSample : CountFramesInFile();
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
    : LSRCPCMFileBase(std::move(opened), rate, channelCount, FullScale16, Format::bytesPerSample, dataBytes) {
}

template <class Format>
void LSRCPCMFile<Format>::Read(int* buffer, int frames) {
    const Request request = Advance(frames);
    const auto samples = [this](int count) { return std::ptrdiff_t{count} * channels; };
    std::fill_n(buffer, samples(request.leading), 0);
    int* end =
        buffer + samples(request.leading) + ReadSamples(buffer + samples(request.leading), request.wanted);
    std::fill(end, buffer + samples(frames), 0);
}

/// Returns how many single samples the file had, which is fewer than asked for where it is cut short.
template <class Format>
int LSRCPCMFile<Format>::ReadSamples(int* buffer, int frames) {
    std::array<typename Format::Stored, 16384> stored;
    const int wanted = frames * channels;
    int done = 0;
    while (done < wanted) {
        const int part = std::min(wanted - done, static_cast<int>(stored.size()));
        const std::size_t bytes = file.Read(stored.data(), static_cast<std::size_t>(part) * sizeof stored[0]);
        const int got = static_cast<int>(bytes / sizeof stored[0]);
        ConvertSamplesIn<Format>(buffer + done, stored.data(), got);
        done += got;
        if (got < part)
            break;
    }
    return done;
}

template class LSRCPCMFile<LSFU8>;
template class LSRCPCMFile<LSFLE16>;
