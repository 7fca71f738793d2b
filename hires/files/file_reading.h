#pragma once

#include "hires/files/rate_converter.h"
#include "hires/files/sound_stream.h"

#include <memory>
#include <string>
#include <vector>

/// A sound file while it is read, at the rate that is wanted.
class HiresFileReading {
public:
    HiresFileReading(const std::string& path, int rate);

    bool IsOpen() const { return stream.Get() != nullptr; }
    const SF_INFO& GetInfo() const { return stream.GetInfo(); }

    /// Reads the next frames, `MaxBlockFrames` at most, 1 being full scale, with silence behind the end;
    /// answers how many there were.
    int Read(int frames);
    /// What was read.
    const double* GetBlock() const { return block.data(); }

    /// Whether it was so when it was opened.
    bool IsCutShort() const { return stream.CountMissingFrames() > 0; }
    bool IsLengthGuessed() const { return stream.IsLengthGuessed(); }
    bool HasMore() const { return stream.HasMore(); }

private:
    HiresSoundStream stream;
    std::vector<double> block;
    std::unique_ptr<HiresRateConverter> converter; ///< at another rate
};
