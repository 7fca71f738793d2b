#include "hires/files/file_writer.h"

#include "hires/files/sound_stream.h"
#include "hires/sample_bits.h"
#include "sound/sound_source.h"

#include <algorithm>
#include <cerrno>

namespace {

/// By `HiresSamples`, and by container but for WAVE and raw.
constexpr int Subtypes[] = {SF_FORMAT_PCM_16, SF_FORMAT_PCM_24, SF_FORMAT_PCM_32, SF_FORMAT_FLOAT};
constexpr int Types[] = {0, SF_FORMAT_FLAC, SF_FORMAT_AIFF, SF_FORMAT_W64, SF_FORMAT_CAF, 0};

int GetType(HiresFileKind::Container container, const HiresFileFormat& format) {
    if (container != HiresFileKind::Container::Wave)
        return Types[static_cast<int>(container)];
    if (IsBeyond4GiB(format))
        return SF_FORMAT_RF64;
    return format.samples == HiresSamples::Int16 ? SF_FORMAT_WAV : SF_FORMAT_WAVEX;
}

/// What has to be said before the first sample.
void Prepare(SNDFILE* file, const HiresFileTags& tags) {
    sf_command(file, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE); // it tells the time
    sf_command(file, SFC_SET_SCALE_INT_FLOAT_WRITE, nullptr, SF_TRUE);
    sf_set_string(file, SF_STR_SOFTWARE, tags.program.c_str());
    sf_set_string(file, SF_STR_COMMENT, tags.comment.substr(0, HiresFileTags::MostBytes).c_str());
}

} // namespace

HiresFileWriter::HiresFileWriter(LReadWriteFile&& file, const HiresFileKind& kind,
                                 const HiresFileFormat& format, const HiresFileTags& tags)
    : failure(kind.Check(format)),
      channels(format.channels),
      quantizer(GetBits(format.samples), format.dither && format.samples == HiresSamples::Int16, format.seed),
      block(static_cast<std::size_t>(channels) * MaxBlockFrames) {
    if (!failure)
        Open(std::move(file), kind, format);
    if (failure)
        return;
    Prepare(stream->Get(), tags);
    stream->BeginPipe(format.frames);
}

HiresFileWriter::~HiresFileWriter() = default;

void HiresFileWriter::Open(LReadWriteFile&& file, const HiresFileKind& kind, const HiresFileFormat& format) {
    if (!file.IsOpen())
        failure = file.GetFailure();
    else if (file.GetOffset() < 0 && kind.container != HiresFileKind::Container::Wave)
        failure = "can't be rewound, which all kinds but WAVE and raw need";
    if (failure)
        return;
    const int type = GetType(kind.container, format) | Subtypes[static_cast<int>(format.samples)];
    stream = std::make_unique<HiresSoundStream>(std::move(file), type, format.rate, format.channels,
                                                format.frames * GetFrameBytes(format));
    if (!stream->Get())
        failure = "can't be written as a file of this kind";
}

LFailure HiresFileWriter::Write(const std::int32_t* samples, int frames) {
    for (int done = 0; done < frames && !failure;) {
        const int now = std::min(frames - done, MaxBlockFrames);
        const std::int32_t* from = samples + static_cast<std::ptrdiff_t>(done) * channels;
        quantizer.Quantize(from, block.data(), now * channels);
        const bool isWritten = sf_writef_int(stream->Get(), block.data(), now) == now;
        failure = stream->GetFailure();
        if (!isWritten && !failure)
            failure = LFailure::OfSystem(EIO);
        done += now;
    }
    return failure;
}

LFailure HiresFileWriter::Finish() {
    if (!stream)
        return failure;
    stream->Close();
    if (!failure)
        failure = stream->GetFailure();
    return failure;
}
