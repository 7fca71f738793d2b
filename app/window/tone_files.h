#pragma once

#include "app/window/tone_document.h"
#include "sys/notice.h"

#include <functional>
#include <optional>
#include <string>

class LWindow;

/// Opens, saves and renders the current tone, and remembers for the next chooser where its files are. What
/// fails is told in a message box, and leaves the tone as it was.
class ToneFiles {
public:
    /// What was saved is told to `savedTeller`, in a line. All else must outlive this.
    ToneFiles(LWindow& owner, ToneState& currentState, std::function<void(const std::string&)> savedTeller)
        : window(owner),
          tone(currentState.tone),
          document(currentState.document),
          tellSaved(std::move(savedTeller)) {}

    /// A document of the desktop's, which has to be a tone file and is remembered in any case; returns why it
    /// was not loaded.
    std::optional<LNotice> LoadDocument(const std::string& path);
    /// A tone file that the user has named; it is remembered, by its full path, where it can be read.
    void LoadNamed(const std::string& path, const std::string& fullPath);
    /// False where the user cancels.
    bool CmLoadTDF();

    void CmSaveAsTDF();
    void CmSave();
    void CmSaveAsWav();
    /// Renders the tone into this file.
    void CmSaveSound(const std::string& path);
    /// Tells that a list has been saved, and how long it is.
    void TellSavedList(const std::string& path);

private:
    std::optional<LNotice> Read(const std::string& path, const std::string& fullPath);
    void CmSaveTDF(const std::string& path);

    LWindow& window;
    SonvireData& tone;
    std::shared_ptr<ToneDocument>& document;
    std::function<void(const std::string&)> tellSaved;
};
