#include "hires/files/sound_stream.h"

#include <algorithm>
#include <cstdio>
#include <utility>

/// What libsndfile calls, with offsets from the start.
struct HiresSoundStream::Callbacks {
    static HiresSoundStream& Of(void* stream) { return *static_cast<HiresSoundStream*>(stream); }

    static sf_count_t GetLength(void* stream) { return Of(stream).file.GetSize() - Of(stream).start; }

    static sf_count_t Tell(void* stream) { return Of(stream).file.GetOffset() - Of(stream).start; }

    static sf_count_t Seek(sf_count_t offset, int whence, void* stream) {
        const sf_count_t base = whence == SEEK_SET   ? 0
                                : whence == SEEK_CUR ? Tell(stream)
                                                     : GetLength(stream);
        sf_count_t target = 0;
        const bool overflows = __builtin_add_overflow(base, offset, &target) ||
                               __builtin_add_overflow(target, Of(stream).start, &target);
        return !overflows && Of(stream).file.SeekTo(target) ? Tell(stream) : -1;
    }

    static sf_count_t Read(void* data, sf_count_t bytes, void* stream) {
        return static_cast<sf_count_t>(Of(stream).file.Read(data, static_cast<std::size_t>(bytes)));
    }

    static sf_count_t Write(const void* data, sf_count_t bytes, void* stream) {
        LFailure& first = Of(stream).failure;
        LFailure unwritten = Of(stream).file.Write(data, static_cast<std::size_t>(bytes));
        if (!unwritten)
            return bytes;
        if (!first)
            first = std::move(unwritten);
        return 0;
    }
};

HiresSoundStream::HiresSoundStream(LReadFile&& opened) : file(std::move(opened)), start(0) {
    Open(SFM_READ);
}

HiresSoundStream::HiresSoundStream(LReadWriteFile&& opened, int format, int rate, int channels)
    : file(std::move(opened)),
      start(file.GetOffset()) {
    info.format = format;
    info.samplerate = rate;
    info.channels = channels;
    static_cast<void>(file.Truncate(start)); // a device has no size
    Open(SFM_WRITE);
}

HiresSoundStream::~HiresSoundStream() {
    Close();
}

void HiresSoundStream::Open(int mode) {
    SF_VIRTUAL_IO calls{Callbacks::GetLength, Callbacks::Seek, Callbacks::Read, Callbacks::Write,
                        Callbacks::Tell};
    handle = sf_open_virtual(&calls, mode, &info, this);
}

void HiresSoundStream::Close() {
    if (handle)
        sf_close(std::exchange(handle, nullptr));
    LFailure lost = file.Close();
    if (lost && !failure)
        failure = std::move(lost);
}
