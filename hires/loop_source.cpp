#include "hires/loop_source.h"

#include <algorithm>

void HiresLoop::OpenNext() {
    current = open();
    if (current && (current->GetLength() == 0 || current->channels != channels))
        current = nullptr;
    left = current ? current->GetLength() : 0;
}

void HiresLoop::Read(std::int32_t* out, int frames) {
    while (current && frames > 0) {
        const int now = static_cast<int>(std::min<std::int64_t>(frames, left));
        current->Read(out, now);
        left -= current->GetLength() == Endless ? 0 : now;
        out += std::ptrdiff_t{now} * channels;
        frames -= now;
        if (left == 0)
            OpenNext();
    }
    std::fill_n(out, std::ptrdiff_t{frames} * channels, 0);
}
