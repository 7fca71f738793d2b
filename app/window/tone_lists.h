#pragma once

#include "app/list_editor/edited_list.h"

class LWindow;
class SonvireData;
class ToneFiles;

/// Makes a tone list the current tone, edited before, and saves the list that is.
class ToneLists {
public:
    /// All must outlive this.
    ToneLists(LWindow& owner, SonvireData& currentTone, ToneFiles& toneFiles)
        : window(owner),
          tone(currentTone),
          files(toneFiles) {}

    // True where the list that was edited is the current tone afterwards.
    bool CmCreateList() { return CmEditList({}); }
    bool CmEditList(const std::string& path);
    /// False where the user cancels the chooser, and nothing has changed.
    bool CmLoadList();
    /// True where the current tone plays the copy afterwards.
    bool CmSaveList();

    /// Where an earlier run has ended while a list was edited: asks whether to go on with it.
    bool OfferLostList();

private:
    bool CopyList(const std::string& list, const std::string& path);

    LWindow& window;
    SonvireData& tone;
    ToneFiles& files;
    EditedList edited;
};
