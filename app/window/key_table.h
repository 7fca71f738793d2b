#pragma once

#include "gui/key_map.h"

std::span<const LKeyMapEntry> GetMainKeys();
