#include "sound/files/pcm_sink.h"

#include "sound/files/wave_format.h"
#include "sound/sound_source.h"

#include <algorithm>

LSNKPCMFileBase::LSNKPCMFileBase(const char* path, int rate, std::uint8_t channelCount,
                                 std::uint32_t sampleBytes, int startSample)
    : LSoundSinkBase(rate, channelCount),
      bytesPerSample(sampleBytes),
      bytesPerFrame(sampleBytes * channels),
      file(LSharedReadWriteFile(path)) {
    NoteOpened();
    lengthHint = std::max(0, startSample);
    WriteRIFF(false);
    std::int64_t offset = LWaveFileFormat::HeaderBytes;
    if (startSample > 0) {
        offset = std::min(GetOffsetOf(startSample), file.GetSize());
        file.SeekTo(offset);
    }
    static_cast<void>(file.Truncate(offset)); // a device has no size
}

LSNKPCMFileBase::LSNKPCMFileBase(LReadWriteFile&& opened, int rate, std::uint8_t channelCount,
                                 std::uint32_t sampleBytes, int totalFrames)
    : LSoundSinkBase(rate, channelCount),
      bytesPerSample(sampleBytes),
      bytesPerFrame(sampleBytes * channels),
      file(std::move(opened)),
      start(file.GetOffset()) {
    NoteOpened();
    WriteHeader(static_cast<std::uint32_t>(totalFrames) * bytesPerFrame);
}

void LSNKPCMFileBase::Finish() {
    if (!file.IsOpen())
        return;
    const bool isPipe = start < 0; // which keeps the header that it was given
    if (!isPipe && file.SeekTo(start))
        WriteRIFF(true);
    else if (!isPipe)
        Note(LFailure::OfLastCall());
    Note(file.Close());
}

std::int64_t LSNKPCMFileBase::GetOffsetOf(int frame) const {
    return start + LWaveFileFormat::HeaderBytes + std::int64_t{frame} * bytesPerFrame;
}

void LSNKPCMFileBase::WriteRIFF(bool final) {
    WriteHeader(final ? static_cast<std::uint32_t>(lengthHint) * bytesPerFrame : ProvisionalDataBytes);
}

void LSNKPCMFileBase::WriteHeader(std::uint32_t dataBytes) {
    LWaveFileFormat format;
    format.channels = channels;
    format.sampleRate = static_cast<std::uint32_t>(sampleRate);
    format.bitsPerSample = static_cast<std::uint16_t>(bytesPerSample * 8);
    Note(format.WritePCMHeader(file, dataBytes));
}

void LSNKPCMFileBase::NoteOpened() {
    if (file.IsOpen())
        return;
    status = SinkUnusable;
    failure = file.GetFailure();
}

void LSNKPCMFileBase::Note(const LFailure& writing) {
    if (!writing || status != 0)
        return;
    status |= SinkFellShort;
    failure = writing;
}

void LSNKPCMFileBase::Seek(int sample) {
    if (sample > lengthHint)
        return;
    lengthHint = std::max(0, sample);
    file.SeekTo(GetOffsetOf(lengthHint));
    static_cast<void>(file.Truncate(GetOffsetOf(lengthHint)));
}

void LSNKPCMFileBase::WriteFrames(const void* data, int frames) {
    lengthHint = WrapAdd(lengthHint, frames);
    Note(file.Write(data, static_cast<std::size_t>(frames) * bytesPerFrame));
    pace.KeepUp(file, GetOffsetOf(lengthHint));
}

template <class Format>
LSNKPCMFile<Format>::LSNKPCMFile(const char* path, int rate, std::uint8_t channelCount, int startSample)
    : LSNKPCMFileBase(path, rate, channelCount, Format::bytesPerSample, startSample),
      stored(std::size_t{channels} * MaxBlockFrames) {
    peakLimit = Format::peak;
}

template <class Format>
LSNKPCMFile<Format>::LSNKPCMFile(LReadWriteFile&& opened, int rate, std::uint8_t channelCount,
                                 int totalFrames)
    : LSNKPCMFileBase(std::move(opened), rate, channelCount, Format::bytesPerSample, totalFrames),
      stored(std::size_t{channels} * MaxBlockFrames) {
    peakLimit = Format::peak;
}

template <class Format>
void LSNKPCMFile<Format>::Write(const int* buffer, int frames) {
    while (frames > 0) {
        const int count = std::min(frames, MaxBlockFrames);
        ConvertSamplesOut<Format>(stored.data(), buffer, count * channels);
        WriteFrames(stored.data(), count);
        buffer += std::ptrdiff_t{count} * channels;
        frames -= count;
    }
}

template class LSNKPCMFile<LSFU8>;
template class LSNKPCMFile<LSFLE16>;
