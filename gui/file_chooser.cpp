#include "gui/file_chooser.h"

#include "gui/toolkit.h"
#include "gui/window.h"
#include "sys/desktop/message_box.h"
#include "sys/file.h"
#include "sys/path.h"

#include <cctype>

namespace {

std::string ExtensionFor(const LFileChooser& chooser, int filter) {
    if (filter > 0 && filter < static_cast<int>(chooser.filters.size()))
        for (const std::string& pattern : SplitPatterns(chooser.filters[static_cast<std::size_t>(filter)]))
            return GetExtension(pattern);
    return chooser.defaultExtension.empty() ? std::string() : "." + chooser.defaultExtension;
}

/// What stands behind a dot and begins with a digit belongs to the name, as in "1.5kHz".
bool NamesAKind(const std::string& path) {
    const std::string extension = GetExtension(path);
    return !extension.empty() &&
           (extension.size() == 1 || std::isdigit(static_cast<unsigned char>(extension[1])) == 0);
}

bool MayReplace(const std::string& path) {
    return LShowMessageBox("Replace File?",
                           "The file \"" + path + "\" already exists. Do you want to replace it?",
                           LMessageButtons::YesNo) == LMessageAnswer::Yes;
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
    LFileChooser shown = chooser;
    shown.name = GetFileName(chooser.name);
    const auto chosen = parent.GetToolkit().ChooseFile(shown, LFilePurpose::Read);
    if (!chosen)
        return {};
    chooser.folder = GetFolder(chosen->path);
    return chosen->path;
}

std::string LChooseFileToSave(LWindow& parent, LFileChooser& chooser) {
    LFileChooser shown = chooser;
    shown.name = GetFileName(chooser.name);
    while (const auto chosen = parent.GetToolkit().ChooseFile(shown, LFilePurpose::Save)) {
        const std::string path =
            chosen->path + (NamesAKind(chosen->path) ? "" : ExtensionFor(chooser, chosen->filter));
        shown.name = GetFileName(path);
        shown.folder = GetFolder(path);
        if (FileExists(path) && !MayReplace(path))
            continue;
        chooser.folder = shown.folder;
        return path;
    }
    return {};
}
