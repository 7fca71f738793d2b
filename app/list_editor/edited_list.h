#pragma once

#include <string>

// The list file that the tone list editor works on, which its caller and it tell each other: empty for a new
// list.

std::string GetEditedList();
void SetEditedList(const std::string& path);
