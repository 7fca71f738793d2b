#pragma once

#include <QAccessible>

/// A widget that shows a text and may stand for something else, which is its accessible name then: a screen
/// reader gets both, such as "Position" and "00:12.3".
class LQtSpokenText {
public:
    virtual ~LQtSpokenText() = default;
    virtual QString GetSpoken() const = 0;
    virtual QAccessible::Role GetRole() const { return QAccessible::StaticText; }

    /// Before the first such widget, or link, is made.
    static void Install();
};
