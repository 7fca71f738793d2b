#pragma once

#include <QKeyEvent>

/// Tells a key that is held from one that is pressed again. X11 repeats a held key as a release and a press
/// of the same time, and where the press comes late, Qt takes both for the user's.
class LQtKeyRepeats {
public:
    /// To be asked for every event of the program. True for a press that the user has not made: the object
    /// has then got it as a repeat instead.
    bool Replaces(QObject& receiver, const QEvent& event);

private:
    bool IsUnmarkedRepeat(const QKeyEvent& press) const;

    int releasedKey = 0;
    quint64 releaseTime = 0; ///< 0 where it is not known
};
