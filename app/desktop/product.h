#pragma once

inline constexpr const char* ProductAndVersion = "Sonvire " SONVIRE_VERSION;
