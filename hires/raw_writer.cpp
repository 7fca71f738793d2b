#include "hires/raw_writer.h"

#include "hires/sample_bits.h"

#include <algorithm>

HiresRawWriter::HiresRawWriter(LReadWriteFile&& opened, const HiresFileFormat& asked)
    : file(std::move(opened)),
      pace(file.GetOffset()),
      format(asked),
      packer(format),
      packed(static_cast<std::size_t>(BlockFrames * GetFrameBytes(format))),
      failure(file.GetFailure()) {
    if (!failure && file.IsRegular())
        failure = file.Truncate(file.GetOffset());
}

LFailure HiresRawWriter::Write(const std::int32_t* samples, int frames) {
    for (int done = 0; done < frames && !failure;) {
        const int now = std::min(frames - done, BlockFrames);
        packer.Pack(samples + std::ptrdiff_t{done} * format.channels, now * format.channels, packed.data());
        failure = file.Write(packed.data(), static_cast<std::size_t>(now * GetFrameBytes(format)));
        pace.KeepUp(file, file.GetOffset());
        done += now;
    }
    return failure;
}

LFailure HiresRawWriter::Finish() {
    LFailure unclosed = file.Close();
    if (!failure)
        failure = std::move(unclosed);
    return failure;
}
