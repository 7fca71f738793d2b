#pragma once

/// A widget whose value is a number with a text of its own, which is its accessible description: a screen
/// reader gets "-3.1 dB" beside the place of the slider.
class LQtSpokenValue {
public:
    struct Range {
        double least, most, value;
    };
    virtual ~LQtSpokenValue() = default;
    virtual Range GetSpoken() const = 0;
    /// Asked for by assistive software; what can't be set stays.
    virtual void SetSpoken(double /*value*/) {}

    /// Before the first such widget is made.
    static void Install();
};
