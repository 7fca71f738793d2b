#pragma once

#include "sound/sound_source.h"
#include "sound/source_news.h"
#include "tone/tone_data.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

struct ToneListReport;

/// What of a list will not sound as its user may expect, each file once, with its entry's number in the list:
/// 2.3 is the third entry of the list that is the second.
std::vector<LFileWarning> CollectWarnings(const ToneListReport& report);

/// Whether the sound has to end, or may go on for ever.
enum class SoundLength { Finite, Any };

/// What is known of an input, in whichever quality it is opened.
struct InputFacts {
    LFailure failure{};       ///< why it can't be used
    bool endless = false;     ///< the reason is, or would be, that it has no end
    bool isList = false;      ///< a list, or a tone that plays one
    bool isNeverLeft = false; ///< a list that stays at an entry which goes on for ever, whatever it counts
    std::vector<LFileWarning> warnings{};
    std::shared_ptr<LSourceNews> news = std::make_shared<LSourceNews>(); ///< what happens while it is read
    std::vector<LNotice> notices{};                                      ///< what whoever plays it is told
    std::set<std::string> files{}; ///< all that is read, the input itself and a list's entries included
};

/// Adds a warning where the list that a tone plays can't be read.
void WarnOfUnreadable(const SonvireData& tone, InputFacts& input);

/// An input opened as the source of its sound.
struct SoundInput : InputFacts {
    LSoundSource source;
    double frames = 0; ///< how long it is at its own rate, also where that is more than can be counted
};

/// Opens a tone (.tdf), a tone list (.tdl) or a WAVE file (.wav), told apart by the extension in any case.
/// `durationMs`, which goes with tones only, makes the tone that long and takes it out of its loop. An
/// endless tone without it is refused where the sound has to end; a list plays once through.
SoundInput OpenSoundInput(const std::string& path, std::optional<unsigned int> durationMs,
                          SoundLength length);

/// The same for a tone that needs no file.
SoundInput OpenToneInput(const SonvireData& tone, SoundLength length);
