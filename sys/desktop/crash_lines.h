#pragma once

#include "sys/desktop/fixed_text.h"

// Pieces of a crash report, put together as a signal handler can.

/// The time now: "2026-11-21 13:45:06".
void AddUtcTime(LFixedText& text);

/// Where an address lies in the program or a library: "sonvire+0x1234 Function+0x12". The library's folder is
/// left out, which may tell who the user is.
void AddCodeAddress(LFixedText& text, const void* code);
