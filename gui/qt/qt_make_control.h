#pragma once

#include "gui/control_layout.h"

class QWidget;

/// The widget of a control, which its parent owns; null for a number text, which is a part of another one.
QWidget* MakeControl(const LControlLayout& control, QWidget* parent);
