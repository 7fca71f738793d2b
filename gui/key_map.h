#pragma once

#include <span>
#include <string>

/// Keys that are named, not typed, and what is held with a key.
enum LVirtualKey : unsigned {
    LKeyNone = 0,
    LKeyReturn = 1, ///< also Enter on the keypad
    LKeyEscape = 2,
    LKeyPageUp = 3,
    LKeyPageDown = 4,
    LKeyF1 = 5,
    LKeyKeypadPlus = 6,
    LKeyDelete = 7,
    LKeyUp = 8,
    LKeyDown = 9,
    LKeyControl = 0x100, ///< added while Ctrl is held
    LKeyShift = 0x200,   ///< added while Shift is held, but for a character that may need it to be typed
    LKeyAlt = 0x400,     ///< added while Alt is held
};

/// A key as the window gets it.
struct LKeyPress {
    unsigned virtualKey = LKeyNone;
    char32_t character = 0; ///< what it types, as a small letter; 0 for a named key
    bool repeated = false;  ///< the key is held down
};

/// One row of a key map: a named key, or a character, with all that has to be held. The first row of a
/// command is the one that its menu entry and tool bar item show.
struct LKeyMapEntry {
    unsigned virtualKey;
    char32_t character;
    int command;
};

/// How the key is written beside a menu entry, such as "Ctrl+S".
std::string DescribeKey(const LKeyMapEntry& key);

/// Calls `show` with each command and how its key is written: of several, the first row's.
template <class Show>
void ShowKeys(std::span<const LKeyMapEntry> keys, Show show) {
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) // so that the first one comes last, and stays
        show(key->command, DescribeKey(*key));
}

/// The row that stands for this key, null where there is none.
const LKeyMapEntry* FindKey(std::span<const LKeyMapEntry> keys, const LKeyPress& key);

/// Turns keys into commands.
class LKeyHandler {
public:
    virtual ~LKeyHandler() = default;

    /// The table must outlive the handler.
    void SetKeyMap(std::span<const LKeyMapEntry> keys) { keyMap = keys; }
    /// True where the map has the key: its command has then gone to one of the two below.
    bool HandleKey(const LKeyPress& key);

protected:
    virtual void EvKeyDown(unsigned command) = 0;
    /// The same for a key that is held down.
    virtual void EvKeyRepeat(unsigned /*command*/) {}

private:
    std::span<const LKeyMapEntry> keyMap;
};
