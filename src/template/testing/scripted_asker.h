// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/asker.h"

#include <deque>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// A user who answers as scripted, Ok when the script has run out. Each message is kept as one text:
/// its style, its title in brackets, its prompt.
class Scripted_Asker : public Asker {
  public:
    std::deque<int> answers;
    std::vector<std::string> messages;

    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override {
        messages.push_back(std::to_string(style) + " [" + title + "] " + prompt);
        if (answers.empty()) return Msgb_Code_Ok;
        const int answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

} // namespace zorvane::doubles
