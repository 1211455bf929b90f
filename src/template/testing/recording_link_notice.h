// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/link_notice.h"
#include "values/numbers.h"

#include <cmath>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// Keeps what a template told the link, one text a call, as "SetTimings 50 1000".
class Recording_Link_Notice : public Link_Notice {
  public:
    std::vector<std::string> calls;

    void SetTimings(std::int32_t requestMs, std::int32_t outMs) override {
        calls.push_back("SetTimings " + numberText(requestMs) + " " + numberText(outMs));
    }
    void SetHoldingRegisters(std::int16_t first, double count, bool flag, std::int16_t last) override {
        const std::string size = std::isfinite(count) ? numberText(count) : "endless";
        calls.push_back("SetHoldingRegisters " + numberText(std::int32_t{first}) + " " + size +
                        (flag ? " True " : " False ") + numberText(std::int32_t{last}));
    }
    void SetAddressBase(std::int32_t base) override { calls.push_back("SetAddressBase " + numberText(base)); }
};

} // namespace zorvane::doubles
