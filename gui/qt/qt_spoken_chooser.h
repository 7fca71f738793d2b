#pragma once

#include "gui/qt/qt_spoken_text.h"

#include <QComboBox>

/// A chooser that is called by its name or label, and tells its choice as its text; Qt's own has the choice
/// as its name.
class LQtSpokenChooser : public QComboBox, public LQtSpokenText {
public:
    using QComboBox::QComboBox;

    QString GetSpoken() const override { return currentText(); }
};
