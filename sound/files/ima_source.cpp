#include "sound/files/ima_source.h"

#include "sound/files/wave_format.h"

#include <algorithm>
#include <array>

namespace {

constexpr int BlockHeaderBytes = 4;

int CountSamples(std::uint32_t dataBytes, std::uint32_t blockSize, std::uint32_t samplesPerBlock) {
    const std::uint32_t rest = dataBytes % blockSize;
    const std::uint32_t inPartialBlock = rest >= BlockHeaderBytes ? (rest - BlockHeaderBytes) * 2 + 1 : 0;
    return static_cast<int>(dataBytes / blockSize * samplesPerBlock + inPartialBlock);
}

} // namespace

LIMASoundSource::LIMASoundSource(LReadFile&& opened, std::uint32_t dataBytes, int rate,
                                 unsigned int blockAlign)
    : LSoundSourceBase(rate, 1, FullScale16),
      file(std::move(opened)),
      dataStart(file.GetOffset()),
      blockSize(static_cast<int>(std::clamp(blockAlign, 4u, 32768u))),
      samplesPerBlock(2 * blockSize - 7) {
    const std::uint32_t bytes =
        IsDataLengthKnown(dataBytes) ? dataBytes : static_cast<std::uint32_t>(file.GetSize() - dataStart);
    endSample = CountSamples(bytes, static_cast<std::uint32_t>(blockSize),
                             static_cast<std::uint32_t>(samplesPerBlock));
}

void LIMASoundSource::Read(int* buffer, int frames) {
    const std::int64_t before = position;
    position = WrapAdd(position, frames);
    const auto leading = static_cast<int>(std::clamp<std::int64_t>(-before, 0, frames));
    const std::int64_t left = std::max<std::int64_t>(0, endSample - std::max<std::int64_t>(before, 0));
    const auto wanted = static_cast<int>(std::min<std::int64_t>(frames - leading, left));
    std::fill_n(buffer, leading, 0);
    const int got = Decode(buffer + leading, wanted);
    std::fill(buffer + leading + got, buffer + frames, 0);
}

/// Returns how many samples there were; fewer than wanted only where the file is cut short.
int LIMASoundSource::Decode(int* buffer, int wanted) {
    int done = 0;
    while (done < wanted) {
        if (samplesLeft == 0) {
            if (!StartBlock(buffer[done]))
                break;
            ++done;
            continue;
        }
        const int got = DecodeInBlock(buffer + done, std::min(wanted - done, samplesLeft));
        if (got == 0)
            break;
        samplesLeft -= got;
        done += got;
    }
    return done;
}

bool LIMASoundSource::StartBlock(int& firstSample) {
    std::array<unsigned char, BlockHeaderBytes> header;
    if (file.Read(header.data(), header.size()) != header.size())
        return false;
    decoder.predictor = static_cast<std::int16_t>(header[0] | header[1] << 8);
    decoder.stepIndex = std::min<int>(header[2], LIMAADPCM::MaxStepIndex);
    firstSample = decoder.predictor * 16;
    samplesLeft = samplesPerBlock - 1;
    return true;
}

/// Decodes a stretch of the current block, at most 512 bytes of it; returns how many samples it gave.
int LIMASoundSource::DecodeInBlock(int* buffer, int wanted) {
    int done = 0;
    if (nibblePending) {
        buffer[done++] = decoder.DecodeSample(savedByte >> 4);
        nibblePending = false;
    }
    std::array<unsigned char, 512> bytes;
    const std::size_t size = std::min(bytes.size(), static_cast<std::size_t>(wanted - done + 1) / 2);
    const std::size_t got = file.Read(bytes.data(), size);
    for (std::size_t i = 0; i < got; ++i) {
        buffer[done++] = decoder.DecodeSample(bytes[i] & 15);
        if (done < wanted)
            buffer[done++] = decoder.DecodeSample(bytes[i] >> 4);
        else
            nibblePending = true;
        savedByte = bytes[i];
    }
    return done;
}

void LIMASoundSource::Seek(int sample) {
    nibblePending = false;
    samplesLeft = 0;
    if (sample <= 0 || sample > endSample) {
        file.SeekTo(dataStart);
        position = sample;
        return;
    }
    const int block = sample / samplesPerBlock;
    file.SeekTo(dataStart + std::int64_t{block} * blockSize);
    position = block * samplesPerBlock;
    std::array<int, 512> discarded;
    for (int left = std::min(sample - position, MaxBlockFrames); left > 0;) {
        const int count = std::min<int>(left, discarded.size());
        Read(discarded.data(), count);
        left -= count;
    }
}

LSoundSource LIMAWaveOpenSource(LReadFile& file, std::uint32_t dataBytes, int rate, std::uint8_t channels,
                                unsigned int blockAlign) {
    if (channels != 1)
        return {};
    return LSoundSource::Make<LIMASoundSource>(std::move(file), dataBytes, rate, blockAlign);
}
