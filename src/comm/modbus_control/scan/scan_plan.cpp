// SPDX-License-Identifier: MIT
#include "comm/modbus_control/scan/scan_plan.h"

#include <algorithm>
#include <utility>

namespace zorvane {

std::int64_t Scan_Block::size() const {
    const std::int64_t count = static_cast<std::int64_t>(last) - first + 1;
    return std::max<std::int64_t>(count, 0);
}

void Scan_Plan::clear() {
    blocks_.clear();
    numbers_.clear();
}

void Scan_Plan::add(Scan_Block block) {
    blocks_.push_back(std::move(block));
    if (covers(blocks_.back())) numbers_.push_back(static_cast<std::int32_t>(blocks_.size()));
}

void Scan_Plan::setMode(const std::string& mode) {
    mode_ = mode;
    numbers_.clear();
    for (std::size_t i = 0; i < blocks_.size(); ++i) {
        if (covers(blocks_[i])) numbers_.push_back(static_cast<std::int32_t>(i + 1));
    }
}

bool Scan_Plan::covers(const Scan_Block& block) const { return mode_ == "NONE" || block.request == mode_; }

const Scan_Block& Scan_Plan::block(std::int32_t number) const {
    return blocks_.at(static_cast<std::size_t>(number) - 1);
}

} // namespace zorvane
