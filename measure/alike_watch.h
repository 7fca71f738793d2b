#pragma once

#include "measure/channel_block.h"

#include <cstddef>
#include <span>
#include <vector>

/// Tells which stretches of a sound are like its first ones: by their power, and by that of the differences
/// from sample to sample, which follows the frequency. What lies within six times what three quarters of the
/// first ones are off by counts as alike; for a steady tone that is a change of a ten-millionth of the power,
/// and so what is 70 dB below the tone. Thread: one at a time.
class AlikeWatch {
public:
    /// All stretches have so many frames, each channel one more before them.
    AlikeWatch(std::size_t channels, std::size_t stretchFrames);

    /// The next stretch, of each channel. The first `Learnt` ones are not told alike.
    bool IsAlike(std::span<const ChannelBlock> stretches);

    static constexpr int Learnt = 64;

private:
    /// A figure of all stretches.
    struct Figure {
        std::vector<double> first;
        double usual = 0, most = 0; ///< the middle one, and how far from it is alike

        bool Take(double value);
        void Learn();
    };
    struct Channel {
        Figure power, differences;
    };

    std::vector<double> window; ///< smooth, so that it doesn't matter where in its period a tone is
    std::vector<Channel> channels;
};
