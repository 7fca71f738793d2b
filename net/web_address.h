#pragma once

#include <string>

/// The address of a web page that the text is, without the blanks around it; empty where the text is anything
/// else: of another scheme than http and https, without a host, or with characters that no address has.
std::string GetWebAddress(const std::string& text);
