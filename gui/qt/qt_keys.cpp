#include "gui/qt/qt_keys.h"

#include "gui/window_peer.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMainWindow>

namespace {

unsigned NameKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return LKeyReturn;
    case Qt::Key_Escape:
        return LKeyEscape;
    case Qt::Key_PageUp:
        return LKeyPageUp;
    case Qt::Key_PageDown:
        return LKeyPageDown;
    case Qt::Key_F1:
        return LKeyF1;
    case Qt::Key_Delete:
        return LKeyDelete;
    case Qt::Key_Up:
        return LKeyUp;
    case Qt::Key_Down:
        return LKeyDown;
    case Qt::Key_Plus:
        return event.modifiers().testFlag(Qt::KeypadModifier) ? LKeyKeypadPlus : LKeyNone;
    default:
        return LKeyNone;
    }
}

/// With Ctrl a key types a control character, so what stands on it is taken instead.
char32_t CharacterOf(const QKeyEvent& event) {
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
        const bool ascii = event.key() >= ' ' && event.key() <= '~';
        return ascii ? QChar::toLower(static_cast<char32_t>(event.key())) : 0;
    }
    const QList<uint> typed = event.text().toUcs4();
    return typed.size() == 1 ? QChar::toLower(typed.front()) : 0;
}

/// What is held to type a sign is the keyboard's affair: "+" stands there with Shift on some, without on
/// others.
bool MayNeedShift(char32_t character) {
    return character > ' ' && !QChar::isLetter(character);
}

/// As key maps know it.
LKeyPress ToKeyPress(const QKeyEvent& event) {
    if (event.modifiers().testFlag(Qt::MetaModifier))
        return {};
    const unsigned name = NameKey(event);
    const char32_t character = name == LKeyNone ? CharacterOf(event) : 0;
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier) && !MayNeedShift(character);
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    return {.virtualKey = name | (control ? LKeyControl : LKeyNone) | (shift ? LKeyShift : LKeyNone) |
                          (alt ? LKeyAlt : LKeyNone),
            .character = character,
            .repeated = event.isAutoRepeat()};
}

bool HasNoUseInInputs(const LKeyPress& key) {
    return key.virtualKey == LKeyEscape || key.virtualKey == LKeyF1 || (key.virtualKey & LKeyControl) != 0;
}

} // namespace

bool OfferKey(LWindowEvents& window, const QWidget& widget, const QKeyEvent& event) {
    const LKeyPress key = ToKeyPress(event);
    const bool free =
        qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QMainWindow*>(&widget);
    return (free || HasNoUseInInputs(key)) && window.KeyPressed(key);
}
