#pragma once

#include "sound/files/ima_adpcm.h"
#include "sound/sound_source.h"
#include "sys/file.h"

#include <cstdint>

/// Reads the data chunk of a mono IMA ADPCM WAVE file. Every block starts with its first sample and the
/// decoder's step index, so that a seek decodes from the block's start. What the file is cut short of is
/// silence.
class LIMASoundSource : public LSoundSourceBase {
public:
    /// Takes over `opened`, which stands at the first block. An unknown length is taken from the file's size.
    /// The block size is brought into 4..32768 bytes.
    LIMASoundSource(LReadFile&& opened, std::uint32_t dataBytes, int rate, unsigned int blockAlign);

    void Read(int* buffer, int frames) override;
    int GetPositionSample() const override { return position; }
    int GetEndSample() const override { return endSample; }
    /// Kept quirk: at most 8192 samples are decoded to get from the block's start to the place, so that in
    /// blocks of more than 4100 bytes a seek can land short of it.
    void Seek(int sample) override;

private:
    int Decode(int* buffer, int wanted);
    bool StartBlock(int& firstSample);
    int DecodeInBlock(int* buffer, int wanted);

    LIMAADPCM decoder;
    LReadFile file;
    std::int64_t dataStart;
    int blockSize;
    int samplesPerBlock;
    int position = 0;
    int endSample;
    int samplesLeft = 0;         ///< in the current block
    unsigned char savedByte = 0; ///< its low half has been decoded
    bool nibblePending = false;  ///< its high half has not
};

/// Opens a reader for one channel; any other layout gives a handle with nothing behind it.
LSoundSource LIMAWaveOpenSource(LReadFile& file, std::uint32_t dataBytes, int rate, std::uint8_t channels,
                                unsigned int blockAlign);
