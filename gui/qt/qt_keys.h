#pragma once

class LWindowEvents;
class QKeyEvent;
class QWidget;

/// Offers the window a key before the widget that has the keyboard gets it; true where it is used. A list
/// would use most keys itself, so all are offered of it, and all that have come up to a main window;
/// elsewhere only those that no input of text or value has a use for: Escape, F1, and any with Ctrl. With the
/// desktop's own key held it is none.
bool OfferKey(LWindowEvents& window, const QWidget& widget, const QKeyEvent& event);
