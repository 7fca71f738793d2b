#pragma once

#include <string>

/// The address of a web page that the text is, without the blanks around it; empty where the text is anything
/// else: of another scheme than http and https, without a host, or with characters that no address has.
std::string GetWebAddress(const std::string& text);

/// True for an address, or a host alone, below ".example", where nothing ever is (RFC 2606): it stands for
/// one that has not been set.
bool IsReservedAddress(const std::string& address);
