#pragma once

#include "gui/main_window_peer.h"
#include "tone/tone_data.h"

#include <memory>

/// What a list is called that is in no file of the user's.
inline constexpr const char* UnsavedList = "Unsaved list";

/// How a window names a list, by its file; one that is in none of the user's has changed.
LWindowDocument DescribeList(const std::string& list);

/// The file that a tone is of, and what stands in it.
class ToneDocument {
public:
    /// Of a tone that no file has been made of yet; it starts as the default tone.
    ToneDocument() = default;
    /// The content is nothing where the file can't be read.
    ToneDocument(std::string file, const std::optional<SonvireData>& fileContent)
        : path(std::move(file)),
          content(fileContent) {}

    const std::string& GetPath() const { return path; }
    /// The tone has been written to this file, which is what it is of from here on.
    void MoveTo(const std::string& file, const SonvireData& tone) {
        path = file;
        content = tone;
    }
    /// How a window names the tone as it is now. A list is named by its own file.
    LWindowDocument Describe(const SonvireData& tone) const;

private:
    std::string path;
    std::optional<SonvireData> content = SonvireData();
};

/// The tone with its document, which all states of one document share: so what is undone is still of the file
/// that it was saved to meanwhile.
struct ToneState {
    SonvireData tone;
    std::shared_ptr<ToneDocument> document = std::make_shared<ToneDocument>();
};
