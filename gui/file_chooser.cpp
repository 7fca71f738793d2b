#include "gui/file_chooser.h"

#include "gui/toolkit.h"
#include "gui/window.h"
#include "sys/desktop/message_box.h"
#include "sys/path.h"

#include <algorithm>
#include <filesystem>

namespace {

std::string ExtensionFor(const LFileChooser& chooser, int filter) {
    if (filter > 0 && filter < static_cast<int>(chooser.filters.size()))
        for (const std::string& pattern : SplitPatterns(chooser.filters[static_cast<std::size_t>(filter)]))
            return GetExtension(pattern);
    return chooser.defaultExtension.empty() ? std::string() : "." + chooser.defaultExtension;
}

std::vector<std::string> GetExtensions(const LFileChooser& chooser) {
    std::vector<std::string> extensions;
    for (const LFileFilter& filter : chooser.filters)
        for (const std::string& pattern : SplitPatterns(filter))
            extensions.push_back(GetExtension(pattern));
    return extensions;
}

bool IsTaken(const LFileChooser& chooser, const std::string& path) {
    const std::vector<std::string> extensions = GetExtensions(chooser);
    return std::any_of(extensions.begin(), extensions.end(), [&path](const std::string& extension) {
        return HasExtension(path, extension.c_str());
    });
}

bool IsOfAnotherKind(const LFileChooser& chooser, const std::string& path) {
    return !IsTaken(chooser, path) &&
           std::any_of(chooser.kinds.begin(), chooser.kinds.end(),
                       [&path](const char* kind) { return HasExtension(path, kind); });
}

void TellKinds(const LFileChooser& chooser, const std::string& path) {
    const std::vector<std::string> extensions = GetExtensions(chooser);
    std::string taken = extensions.front();
    for (std::size_t i = 1; i < extensions.size(); ++i)
        taken += (i + 1 == extensions.size() ? " or " : ", ") + extensions[i];
    LShowMessageBox("Error", "The name \"" + GetFileName(path) +
                                 "\" is one for another kind of file: here it has to end in " + taken + ".");
}

bool MayReplace(const std::string& path) {
    return LShowMessageBox("Replace File?",
                           "The file \"" + path + "\" already exists. Do you want to replace it?",
                           LMessageButtons::NoYes) == LMessageAnswer::Yes;
}

bool IsFolder(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored);
}

std::string FindNearestFolder(std::string folder) {
    while (folder.find('/') != std::string::npos && !IsFolder(folder))
        folder = folder.substr(0, std::max<std::size_t>(folder.rfind('/'), 1));
    return folder;
}

/// As it is shown at first.
LFileChooser Begin(const LFileChooser& chooser) {
    LFileChooser shown = chooser;
    const std::string ownFolder = GetFolder(chooser.name);
    const bool hasOwn = ownFolder.front() == '/' && IsFolder(ownFolder);
    shown.folder = hasOwn ? ownFolder : FindNearestFolder(chooser.folder);
    shown.name = GetFileName(chooser.name);
    return shown;
}

} // namespace

std::vector<std::string> SplitPatterns(const LFileFilter& filter) {
    std::vector<std::string> patterns;
    std::string rest = filter.pattern;
    while (!rest.empty()) {
        const std::size_t end = rest.find(';');
        if (end != 0)
            patterns.push_back(rest.substr(0, end));
        rest = end == std::string::npos ? std::string() : rest.substr(end + 1);
    }
    return patterns;
}

std::string LChooseFileToRead(LWindow& parent, LFileChooser& chooser) {
    LFileChooser shown = Begin(chooser);
    if (!FileExists(shown.folder + "/" + shown.name))
        shown.name.clear();
    const auto chosen = parent.GetToolkit().ChooseFile(shown, LFilePurpose::Read);
    if (!chosen)
        return {};
    chooser.folder = GetFolder(chosen->path);
    return chosen->path;
}

std::string LChooseFileToSave(LWindow& parent, LFileChooser& chooser) {
    LFileChooser shown = Begin(chooser);
    while (const auto chosen = parent.GetToolkit().ChooseFile(shown, LFilePurpose::Save)) {
        const bool refused = IsOfAnotherKind(chooser, chosen->path);
        const bool complete = refused || IsTaken(chooser, chosen->path);
        const std::string path =
            chosen->path + (complete ? std::string() : ExtensionFor(chooser, chosen->filter));
        shown.name = GetFileName(path);
        shown.folder = GetFolder(path);
        if (refused)
            TellKinds(chooser, path);
        if (refused || (FileExists(path) && !MayReplace(path)))
            continue;
        chooser.folder = shown.folder;
        return path;
    }
    return {};
}
