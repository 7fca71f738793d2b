#pragma once

#include <QSlider>

/// A slider whose number says little to people: a screen reader reads its accessible description as its
/// value, such as "-3.1 dB".
class LQtSpokenSlider : public QSlider {
public:
    using QSlider::QSlider;

    /// Before the first such slider is made.
    static void Install();
};
