#pragma once

#include "sys/desktop/message_box.h"

#include <numeric>
#include <vector>

/// Records message boxes as "title: text" and answers OK.
class RecordedMessages : public LMessageBoxPort {
public:
    LMessageAnswer Show(const std::string& title, const std::string& text,
                        LMessageButtons /*buttons*/) override {
        shown.push_back(title + ": " + text);
        return LMessageAnswer::Ok;
    }

    std::string GetText() const { return std::accumulate(shown.begin(), shown.end(), std::string()); }

    std::vector<std::string> shown;
};
