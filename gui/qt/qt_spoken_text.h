#pragma once

#include <QString>

/// A widget that shows a text and may stand for something else, which is its accessible name then: a screen
/// reader gets both, such as "Position" and "00:12.3".
class LQtSpokenText {
public:
    virtual ~LQtSpokenText() = default;
    virtual QString GetSpoken() const = 0;

    /// Before the first such widget, or link, is made.
    static void Install();
};
