#include "hires/files/file_writer.h"

#include "hires/files/sound_stream.h"
#include "hires/files/tag_text.h"
#include "hires/sample_bits.h"

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

/// Whether its samples are what `HiresPacker` makes, which is much faster than libsndfile.
bool IsPacked(int type, HiresSamples samples) {
    const bool isLittleEndian = type != SF_FORMAT_FLAC && type != SF_FORMAT_AIFF && type != SF_FORMAT_CAF;
    return isLittleEndian && samples != HiresSamples::Float;
}

/// What has to be said before the first sample.
void Prepare(SNDFILE* file, const HiresFileTags& tags) {
    Sndfile().command(file, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE); // it tells the time
    Sndfile().command(file, SFC_SET_SCALE_INT_FLOAT_WRITE, nullptr, SF_TRUE);
    Sndfile().set_string(file, SF_STR_SOFTWARE, MakeTagText(tags.program, HiresFileTags::MostBytes).c_str());
    Sndfile().set_string(file, SF_STR_COMMENT, MakeTagText(tags.comment, HiresFileTags::MostBytes).c_str());
}

} // namespace

HiresFileWriter::HiresFileWriter(LReadWriteFile&& file, const HiresFileKind& kind,
                                 const HiresFileFormat& format, const HiresFileTags& tags)
    : failure(kind.Check(format)),
      channels(format.channels),
      packer(format) {
    if (!failure)
        Open(std::move(file), kind, format);
    if (failure)
        return;
    Prepare(stream->Get(), tags);
    stream->BeginPipe(format.frames);
}

HiresFileWriter::~HiresFileWriter() = default;

void HiresFileWriter::Open(LReadWriteFile&& file, const HiresFileKind& kind, const HiresFileFormat& format) {
    if (file.IsOpen() && file.GetOffset() < 0 && kind.container != HiresFileKind::Container::Wave)
        failure = "can't be rewound, which all kinds but WAVE and raw need";
    if (failure)
        return;
    const int type = GetType(kind.container, format);
    stream =
        std::make_unique<HiresSoundStream>(std::move(file), type | Subtypes[static_cast<int>(format.samples)],
                                           format.rate, channels, format.frames * GetFrameBytes(format));
    failure = stream->GetFailure();
    if (IsPacked(type, format.samples))
        packed.resize(static_cast<std::size_t>(BlockFrames * GetFrameBytes(format)));
    else
        block.resize(static_cast<std::size_t>(BlockFrames * channels));
}

bool HiresFileWriter::WriteBlock(const std::int32_t* from, int frames) {
    if (packed.empty()) {
        packer.Round(from, frames * channels, block.data());
        return Sndfile().writef_int(stream->Get(), block.data(), frames) == frames;
    }
    packer.Pack(from, frames * channels, packed.data());
    const std::ptrdiff_t bytes = std::ssize(packed) / BlockFrames * frames;
    return Sndfile().write_raw(stream->Get(), packed.data(), bytes) == bytes;
}

LFailure HiresFileWriter::Write(const std::int32_t* from, int frames) {
    for (int done = 0; done < frames && !failure;) {
        const int now = std::min(frames - done, BlockFrames);
        const bool isWritten = WriteBlock(from + std::ptrdiff_t{done} * channels, now);
        failure = stream->GetFailure();
        if (!isWritten && !failure)
            failure = LFailure::OfSystem(EIO);
        isEmpty = false;
        done += now;
    }
    return failure;
}

LFailure HiresFileWriter::Finish() {
    if (!stream)
        return failure;
    if (isEmpty && stream->Get()) // else a FLAC file without a frame would be one without a byte
        Sndfile().command(stream->Get(), SFC_UPDATE_HEADER_NOW, nullptr, 0);
    stream->Close();
    if (!failure)
        failure = stream->GetFailure();
    return failure;
}
