#pragma once

#include "gui/window.h"

/// Opens the page of the maker's web site that a standard link of the Help menu leads to, and says its
/// address where there is no browser. False for every other command.
bool OpenWebLink(LWindow& parent, int command);
/// Where such a link leads; empty for every other command, and where no web site was set when the program was
/// built.
std::string GetWebLink(int command);
/// The same for any web site, whose address ends in "/".
std::string GetWebLink(int command, const std::string& site);
/// Opens a page of the web, and says its address where there is no browser.
void OpenWebPage(LWindow& parent, const std::string& address);

/// At the end of the program: the first time that the user ends it, opens a page of thanks, if there is a web
/// site. Nothing is said where there is no browser.
void OpenThankYouPageOnce(LToolkit& toolkit);
