#pragma once

#include "gui/window.h"

/// Has crashes of this program reported from here on. For `main` alone.
void InstallCrashReport();

/// After a crash, once: asks whether the user wants to see its report, to send it to the maker.
void OfferCrashReport(LWindow& parent);
