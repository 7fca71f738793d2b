#pragma once

#include "app/edit_history.h"
#include "app/list_editor/edited_list.h"
#include "app/window/tone_document.h"
#include "sys/desktop/message_box.h"
#include "tone/tone_data.h"

class LWindow;
class ToneFiles;

using ToneHistory = EditHistory<ToneState>;

/// Makes a tone list the current tone, edited before, and saves the list that is.
class ToneLists {
public:
    /// All must outlive this.
    ToneLists(LWindow& owner, SonvireData& currentTone, ToneFiles& toneFiles, const ToneHistory& toneHistory)
        : window(owner),
          tone(currentTone),
          files(toneFiles),
          history(toneHistory) {}

    // True where the list that was edited is the current tone afterwards.
    bool CmCreateList() { return CmEditList({}); }
    bool CmEditList(const std::string& path);
    /// False where nothing has changed, as the user has cancelled.
    bool CmLoadList();
    /// True where the current tone plays the copy afterwards.
    bool CmSaveList();

    /// Where an earlier run has ended while a list was edited: asks whether to go on with it.
    bool OfferLostList();

    /// Before another tone takes the place of a list that is not saved: whether to save it. No without asking
    /// where there is none; a list that the user does not want to save is offered when one is loaded.
    LMessageAnswer AskToSave();
    /// Removes the temporary files of lists that nothing names any more, neither the tone nor one that can be
    /// gone back to; done after every change of the tone.
    void RemoveUnused();

private:
    bool OfferUnsavedList();
    bool CopyList(const std::string& list, const std::string& path);

    LWindow& window;
    SonvireData& tone;
    ToneFiles& files;
    const ToneHistory& history;
    EditedList edited;
};
