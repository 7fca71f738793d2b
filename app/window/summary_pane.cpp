#include "app/window/summary_pane.h"

#include "app/window/command_ids.h"
#include "app/window/tone_summary.h"
#include "gui/window.h"

namespace {

constexpr int Inset = 12;
constexpr int LeastBelow = 6; ///< a text on the edge would look cut off

struct Line {
    int control;
    LControlKind kind;
    int above; ///< pixels
    std::string ToneSummary::*text;
};

constexpr Line Lines[] = {
    {ControlHeadline, LControlKind::Heading, 16, &ToneSummary::headline},
    {ControlToneKind, LControlKind::Text, 6, &ToneSummary::kind},
    {ControlToneLevel, LControlKind::Text, 4, &ToneSummary::level},
    {ControlKeyHint, LControlKind::Hint, 14, &ToneSummary::keys},
};

} // namespace

void SummaryPane::Create() {
    for (const Line& line : Lines)
        window.GetControls().Add({line.control, line.kind, "", {}});
}

void SummaryPane::Show(const SonvireData& tone) {
    const ToneSummary summary = SummarizeTone(tone, GetQuality());
    for (const Line& line : Lines)
        window.SetText(line.control, summary.*line.text);
}

int SummaryPane::GetHeight() const {
    int height = LeastBelow;
    for (const Line& line : Lines)
        if (line.control != ControlToneLevel && !window.GetText(line.control).empty())
            height += line.above + window.GetControls().GetPlace(line.control).height;
    return height;
}

int SummaryPane::Place(const LRect& room, int beyond, bool withLevel) {
    LControlsPeer& controls = window.GetControls();
    const int end = room.y + room.height;
    int y = room.y;
    bool isFull = false;
    for (const Line& line : Lines) {
        if (window.GetText(line.control).empty())
            continue;
        LRect place{room.x + Inset, y + line.above, room.width - 2 * Inset, 0};
        controls.Place(line.control, place);
        const int below = place.y + controls.GetPlace(line.control).height;
        const bool isShown = withLevel || line.control != ControlToneLevel;
        if (isShown && !isFull && below + LeastBelow <= end) {
            y = below;
            continue;
        }
        isFull = isFull || isShown;
        place.y = beyond;
        controls.Place(line.control, place);
    }
    return y;
}
