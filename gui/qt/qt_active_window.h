#pragma once

class QWidget;

/// The window that a new dialog belongs over: the modal one on top, else the main window, else none.
QWidget* FindActiveWindow();
