#include "tone/tone_list_file.h"

#include "sys/file.h"
#include "sys/parse.h"
#include "sys/text_reader.h"

#include <algorithm>

ToneItem ParseToneListLine(std::string line) {
    line.resize(std::min(line.size(), line.find('\0'))); // a text ends at its first zero byte
    const std::size_t suffix = line.find(SilenceSuffix);
    if (suffix == std::string::npos || line.back() != '.')
        return ToneItem(line);
    return ToneItem(LSoundTime(ParseLeadingInt(line.substr(0, suffix).c_str())));
}

LFailure ReadToneListLines(std::vector<std::string>& lines, const char* path) {
    LTextReader reader(path);
    std::string line;
    while (lines.size() <= MaxListEntries && reader.ReadLine(line))
        lines.push_back(line);
    return reader.GetFailure();
}

void GetToneListFromFile(LList<ToneItem>& list, const char* path) {
    std::vector<std::string> lines;
    static_cast<void>(ReadToneListLines(lines, path));
    for (std::string& line : lines)
        list.push_front(ParseToneListLine(std::move(line)));
}

LFailure WriteToneListFile(const char* path, const std::vector<std::string>& rows) {
    std::string text;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        text += *row + "\n";
    return LFile::SaveFile(path, text.data(), static_cast<unsigned int>(text.size()));
}
