#pragma once

#include "gui/control_layout.h"
#include "gui/level_meter.h"

#include <memory>
#include <string>
#include <vector>

class LListViewEvents;
class LListViewPeer;
class LSoundViewPeer;

/// The toolkit's side of a window's controls, each reached by its id. What a control's kind does not have is
/// ignored, and so is an id that no control has: texts read as empty then, values as 0. A change made here
/// raises no event. UI thread only, as everything in this folder.
class LControlsPeer {
public:
    virtual ~LControlsPeer() = default;

    virtual void Add(const LControlLayout& control) = 0;
    virtual void Place(int id, const LRect& rect) = 0;
    virtual LRect GetPlace(int id) const = 0;

    virtual void SetText(int id, const std::string& text) = 0;
    virtual std::string GetText(int id) const = 0;
    virtual void Enable(int id, bool enabled) = 0;
    virtual void SetToolTip(int id, const std::string& text) = 0;
    /// What a screen reader calls a control that has no text, nor a text, box or radio button in the row
    /// before it, which name an input as well.
    virtual void SetName(int id, const std::string& name) = 0;
    /// Marks a text as one that can't be taken.
    virtual void MarkWrong(int id, bool wrong) = 0;
    /// Gives the control the keyboard; the text of an input is selected.
    virtual void SetFocus(int id) = 0;

    /// A number, as each kind has one: checked or not, the number in an edit, percent, the place of a slider,
    /// the index of a choice.
    virtual void SetRange(int id, int least, int most) = 0;
    virtual void SetValue(int id, int value) = 0;
    virtual int GetValue(int id) const = 0;
    /// True while the user holds a slider: more values are to come, and the last one is told again when it is
    /// let go.
    virtual bool IsHeld(int id) const = 0;

    /// What a chooser offers; the first one becomes its value.
    virtual void SetChoices(int id, const std::vector<std::string>& choices) = 0;
    /// What a level meter shows.
    virtual void SetLevels(int id, const LMeterLevels& levels) = 0;
    /// What a screen reader says of a slider's value.
    virtual void SetValueText(int id, const std::string& text) = 0;

    /// The peer for the list of this id, which must exist; it may outlive the list.
    virtual std::unique_ptr<LListViewPeer> CreateListViewPeer(int id, LListViewEvents& events) = 0;
    /// The same for a view of a sound.
    virtual std::unique_ptr<LSoundViewPeer> CreateSoundViewPeer(int id) = 0;
};
