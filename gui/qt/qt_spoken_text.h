#pragma once

/// Lets screen readers tell what a label or a chooser stands for from what it shows: one with an accessible
/// name is called by that, and its text is read as its text. A link is one. Before the first one is made.
void InstallSpokenTexts();
