// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zorvane::commission {

/// What came of asking who is at the other end.
enum class Question_End {
    Go_On,  ///< it is the controller, or can't be told, or somebody has said to go on all the same
    Wrong,  ///< it isn't
    Silent, ///< nobody answers
    Lost,   ///< the port is gone
    Cancelled,
};

struct Question_Answer {
    Question_End end = Question_End::Go_On;
    std::string word; ///< the verdict: "is", "isn't" or "can't tell"
    std::string why;  ///< of any other end than Go_On
    std::int32_t requests = 0;
};

/// Asks who is at the other end, as often as it is called.
class Controller_Question {
  public:
    virtual ~Controller_Question() = default;
    [[nodiscard]] virtual Question_Answer ask(std::int32_t unit) = 0;
};

} // namespace zorvane::commission
