#pragma once

#include <span>
#include <string>
#include <vector>

class LWindow;

/// A kind of file that a chooser offers. The pattern is "*.tdf" or several of them, each followed by ";".
struct LFileFilter {
    std::string description;
    std::string pattern;
};

enum class LFilePurpose { Read, Save };

/// What a file chooser is opened with.
struct LFileChooser {
    std::string title;
    std::string name;   ///< what stands in the name field at first; a path starts in its own folder
    std::string folder; ///< where a name without one starts; after a choice, the folder of the file chosen
    std::vector<LFileFilter> filters;
    std::string defaultExtension; ///< without a dot; added to a name to save that no filter takes
    /// Extensions, in small letters and with a dot, that mean another kind of file where no filter takes
    /// them.
    std::span<const char* const> kinds{};
};

/// What a toolkit's chooser returns.
struct LChosenFile {
    std::string path;
    int filter = 0; ///< the index of the filter that was in use
};

/// The single patterns of a filter: "*.tdl;*.wav" has two.
std::vector<std::string> SplitPatterns(const LFileFilter& filter);

// Both start in the nearest folder above that exists, where theirs is gone.

/// Asks for an existing file; the empty path where the user cancels.
std::string LChooseFileToRead(LWindow& parent, LFileChooser& chooser);

/// Asks for a file to save to, and again where its name means another kind of file, or it exists and shall
/// not be replaced; the empty path where the user cancels. A name that no filter takes gets the extension of
/// the filter in use, or the default where that is the first: a dot alone makes no extension.
std::string LChooseFileToSave(LWindow& parent, LFileChooser& chooser);
