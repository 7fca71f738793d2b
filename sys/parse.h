#pragma once

/// The integer that a text begins with, as `strtol` reads it: leading blanks and a sign are taken, the first
/// character that is no digit ends it, text without a number is 0. Beyond the range of int it is the range's
/// end.
int ParseLeadingInt(const char* text);
