#pragma once

#include "sys/message_box.h"

#include <vector>

/// Records message boxes as "title: text" and answers them as told.
class RecordedMessages : public LMessageBoxPort {
public:
    LMessageAnswer Show(const std::string& title, const std::string& text,
                        LMessageButtons /*buttons*/) override {
        shown.push_back(title + ": " + text);
        return answer;
    }

    std::vector<std::string> shown;
    LMessageAnswer answer = LMessageAnswer::Ok;
};
