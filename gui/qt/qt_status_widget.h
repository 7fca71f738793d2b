#pragma once

struct LStatusItem;
class QWidget;

/// The widget that shows a field of the status bar, a child of `parent`. A click on it leaves the keyboard
/// where it is.
QWidget* MakeStatusWidget(const LStatusItem& item, QWidget* parent);
