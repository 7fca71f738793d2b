#pragma once

#include "cli/report_parts.h"
#include "jobs/hires_input.h"

/// What high quality makes of a tone or list.
class HighQuality {
public:
    HighQuality(HiresInput opened, const HiresRequest& request)
        : input(std::move(opened)),
          level(request.settings.level) {}

    const HiresInput& GetInput() const { return input; }
    /// By how much components stand above what they are in the standard quality.
    double GetRaisedDb() const { return level - HiresSettings::StandardLevel - input.loweredDb; }
    void AddTo(FileReport& report, Json& object) const;

private:
    HiresInput input;
    double level;
};

/// Of any sound file, at its own resolution.
FileReport ReportSoundFile(const std::string& path);
