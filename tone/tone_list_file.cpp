#include "tone/tone_list_file.h"

#include "sys/file.h"
#include "sys/message_box.h"
#include "sys/parse.h"
#include "sys/text_reader.h"

#include <algorithm>

namespace {

ToneItem ParseLine(std::string line) {
    line.resize(std::min(line.size(), line.find('\0'))); // a text ends at its first zero byte
    const std::size_t suffix = line.find(SilenceSuffix);
    if (suffix == std::string::npos || line.back() != '.')
        return ToneItem(line);
    return ToneItem(LSoundTime(ParseLeadingInt(line.substr(0, suffix).c_str())));
}

} // namespace

void GetToneListFromFile(LList<ToneItem>& list, const char* path) {
    LTextReader reader(path);
    std::string line;
    for (int count = 0; reader.ReadLine(line); ++count) {
        if (count == MaxListEntries) {
            LShowMessageBox("Tone list", std::string("The list \"") + path + "\" has more than " +
                                             std::to_string(MaxListEntries) +
                                             " lines. The last ones are left out.");
            return;
        }
        list.push_front(ParseLine(line));
    }
}

bool WriteToneListFile(const char* path, const std::vector<std::string>& rows) {
    std::string text;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        text += *row + "\n";
    return LFile::SaveFile(path, text.data(), static_cast<unsigned int>(text.size()));
}
