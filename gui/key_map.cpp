#include "gui/key_map.h"

#include <algorithm>
#include <cctype>

namespace {

bool IsKey(const LKeyMapEntry& entry, const LKeyPress& key) {
    return entry.virtualKey == key.virtualKey && entry.character == key.character;
}

std::string NameOf(unsigned virtualKey, char32_t character) {
    switch (virtualKey) {
    case LKeyReturn:
        return "Return";
    case LKeyEscape:
        return "Esc";
    case LKeyPageUp:
        return "PgUp";
    case LKeyPageDown:
        return "PgDown";
    case LKeyF1:
        return "F1";
    case LKeyKeypadPlus:
        return "Num+";
    case LKeyDelete:
        return "Del";
    case LKeyUp:
        return "Up";
    case LKeyDown:
        return "Down";
    default:
        return character == ' '
                   ? "Space"
                   : std::string(1, static_cast<char>(std::toupper(static_cast<int>(character))));
    }
}

} // namespace

std::string DescribeKey(const LKeyMapEntry& key) {
    const std::string control = (key.virtualKey & LKeyControl) != 0 ? "Ctrl+" : "";
    const std::string shift = (key.virtualKey & LKeyShift) != 0 ? "Shift+" : "";
    const std::string alt = (key.virtualKey & LKeyAlt) != 0 ? "Alt+" : "";
    return control + shift + alt +
           NameOf(key.virtualKey & ~(LKeyControl | LKeyShift | LKeyAlt), key.character);
}

const LKeyMapEntry* FindKey(std::span<const LKeyMapEntry> keys, const LKeyPress& key) {
    const auto found = std::find_if(keys.begin(), keys.end(),
                                    [&key](const LKeyMapEntry& entry) { return IsKey(entry, key); });
    return found == keys.end() ? nullptr : &*found;
}

bool LKeyHandler::HandleKey(const LKeyPress& key) {
    const LKeyMapEntry* entry = FindKey(keyMap, key);
    if (!entry)
        return false;
    const auto command = static_cast<unsigned>(entry->command);
    key.repeated ? EvKeyRepeat(command) : EvKeyDown(command);
    return true;
}
