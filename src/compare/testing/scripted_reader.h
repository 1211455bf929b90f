// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace zorvane::compare::doubles {

/// Units without a line: a controller with registers by number. A register that it doesn't have refuses the
/// whole request with exception 2; time goes on by a tenth of a second with each request, and by pauses.
class Scripted_Reader : public Unit_Reader {
  public:
    [[nodiscard]] Unit_Answer read(std::int32_t unit, std::int32_t first, std::int32_t count) override {
        requests.push_back(std::to_string(unit) + ": " + std::to_string(first) + "-" +
                           std::to_string(first + count - 1));
        time += 100 * microsPerMs;
        if (before) before();
        Unit_Answer answer;
        answer.end = endOf(first);
        if (answer.end != Unit_End::Answered) {
            answer.fault = "told so";
            return answer;
        }
        for (std::int32_t number = first; number < first + count; ++number) {
            const auto held = registers.find(number);
            if (held == registers.end()) return refused();
            answer.values.push_back(held->second);
        }
        return answer;
    }
    [[nodiscard]] Unit_Answer readObjects(std::int32_t unit, std::int32_t highest) override {
        requests.push_back(std::to_string(unit) + ": objects to " + std::to_string(highest));
        Unit_Answer answer;
        answer.end = objectsEnd;
        if (objectsEnd == Unit_End::Answered) answer.objects = objects;
        if (objectsEnd == Unit_End::Refused) answer.exception = 1;
        if (objectsEnd == Unit_End::PortLost) answer.fault = "told so";
        return answer;
    }
    void pause(Micros span) override {
        requests.push_back("pause " + std::to_string(span / microsPerMs) + " ms");
        time += span;
    }
    [[nodiscard]] Micros now() const override { return time; }
    [[nodiscard]] bool cancelled() const override { return wantsEnd; }

    std::map<std::int32_t, std::uint16_t> registers;
    std::map<std::int32_t, Unit_End> ends; ///< of requests, by their first register
    std::map<std::int32_t, std::string> objects;
    Unit_End objectsEnd = Unit_End::Refused;
    std::function<void()> before; ///< called before each answer
    std::vector<std::string> requests;
    Micros time = 0;
    bool wantsEnd = false;

  private:
    [[nodiscard]] Unit_End endOf(std::int32_t first) const {
        const auto told = ends.find(first);
        return told == ends.end() ? Unit_End::Answered : told->second;
    }
    [[nodiscard]] static Unit_Answer refused() {
        Unit_Answer answer;
        answer.end = Unit_End::Refused;
        answer.exception = 2;
        return answer;
    }
};

} // namespace zorvane::compare::doubles
