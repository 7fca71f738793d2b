#include "gui/qt/qt_key_repeats.h"

#include <QCoreApplication>

bool LQtKeyRepeats::IsUnmarkedRepeat(const QKeyEvent& press) const {
    return !press.isAutoRepeat() && releaseTime != 0 && press.timestamp() == releaseTime &&
           press.key() == releasedKey;
}

bool LQtKeyRepeats::Replaces(QObject& receiver, const QEvent& event) {
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    if (event.type() == QEvent::KeyRelease) {
        releasedKey = key.key();
        releaseTime = key.timestamp();
        return false;
    }
    if (!IsUnmarkedRepeat(key))
        return false;
    QKeyEvent repeat(QEvent::KeyPress, key.key(), key.modifiers(), key.nativeScanCode(),
                     key.nativeVirtualKey(), key.nativeModifiers(), key.text(), true);
    repeat.setTimestamp(key.timestamp());
    QCoreApplication::sendEvent(&receiver, &repeat);
    return true;
}
