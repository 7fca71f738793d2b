#include "gui/qt/qt_keys.h"

#include <QKeyEvent>

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
    case Qt::Key_Plus:
        return event.modifiers().testFlag(Qt::KeypadModifier) ? LKeyKeypadPlus : LKeyNone;
    default:
        return LKeyNone;
    }
}

/// With Ctrl a key types a control character, so its letter is taken instead.
char32_t CharacterOf(const QKeyEvent& event) {
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
        const bool ascii = event.key() > ' ' && event.key() <= '~';
        return ascii ? QChar::toLower(static_cast<char32_t>(event.key())) : 0;
    }
    const QList<uint> typed = event.text().toUcs4();
    return typed.size() == 1 ? typed.front() : 0;
}

} // namespace

LKeyPress ToKeyPress(const QKeyEvent& event) {
    if (event.modifiers().testAnyFlags(Qt::AltModifier | Qt::MetaModifier))
        return {};
    const unsigned name = NameKey(event);
    const unsigned held = event.modifiers().testFlag(Qt::ControlModifier) ? LKeyControl : LKeyNone;
    return {.virtualKey = name | held,
            .character = name == LKeyNone ? CharacterOf(event) : 0,
            .repeated = event.isAutoRepeat()};
}

bool IsForTheWindow(const LKeyPress& key) {
    return key.virtualKey == LKeyEscape || key.virtualKey == LKeyF1 || (key.virtualKey & LKeyControl) != 0;
}
