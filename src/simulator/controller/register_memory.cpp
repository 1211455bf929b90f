// SPDX-License-Identifier: MIT
#include "simulator/controller/register_memory.h"

#include "simulator/controller/live_values.h"
#include "simulator/faults/strike.h"

#include <algorithm>
#include <utility>

namespace zorvane::simulator {

void Register_Memory::load(const Register_Map& map, std::vector<const Quirk_Rule*> drifts) {
    addressBase_ = map.addressBase;
    stored_ = map;
    drifts_ = std::move(drifts);
    unstored_.clear();
    fill();
}

void Register_Memory::storeLate(std::chrono::milliseconds delay, Keep_Registers keep) {
    storeDelay_ = delay;
    keep_ = std::move(keep);
    keepStored();
}

std::uint16_t Register_Memory::value(std::uint16_t address) const {
    const auto hidden = hidden_.find(address);
    return hidden != hidden_.end() ? hidden->second.value : slave_.value(address);
}

std::optional<std::uint16_t> Register_Memory::numbered(std::int32_t number) const {
    if (!stored_.values.contains(number)) return std::nullopt;
    return value(static_cast<std::uint16_t>(number - addressBase_));
}

void Register_Memory::write(std::uint16_t address, std::uint16_t value, Instant now,
                            std::chrono::milliseconds hidden) {
    live_.erase(address);
    if (hidden.count() > 0) {
        hidden_[address] = {value, now + hidden};
    } else {
        hidden_.erase(address);
        slave_.setValue(address, value);
    }
    const auto drifting = drifting_.find(address);
    if (drifting != drifting_.end()) drifting->second.since = now;
    unstored_.push_back({now + storeDelay_, address, value});
}

void Register_Memory::hasBeenRead(std::uint16_t address) {
    const auto found = live_.find(address);
    if (found == live_.end()) return;
    Live& live = found->second;
    ++live.readings;
    slave_.setValue(address, liveValue(live.base, live.range, seed_, address + addressBase_, live.readings));
}

void Register_Memory::elapse(Instant now) {
    uncover(now);
    drift(now);
    storeDue(now);
}

std::optional<Instant> Register_Memory::nextStore() const {
    return unstored_.empty() ? std::nullopt : std::optional<Instant>(unstored_.front().due);
}

void Register_Memory::losePower() {
    unstored_.clear();
    fill();
}

/// The registers as they are after the power came.
void Register_Memory::fill() {
    known_.clear();
    live_.clear();
    hidden_.clear();
    drifting_.clear();
    for (const auto& [number, value] : stored_.values) {
        const auto address = static_cast<std::uint16_t>(number - addressBase_);
        known_.insert(address);
        slave_.setValue(address, value);
        const auto live = stored_.live.find(number);
        if (live != stored_.live.end()) live_[address] = {value, live->second, 0};
        for (const Quirk_Rule* rule : drifts_)
            if (covers(*rule, number)) drifting_[address] = {std::chrono::milliseconds(rule->value), {}};
    }
}

void Register_Memory::uncover(Instant now) {
    for (auto hidden = hidden_.begin(); hidden != hidden_.end();) {
        if (hidden->second.until > now) {
            ++hidden;
            continue;
        }
        slave_.setValue(hidden->first, hidden->second.value);
        hidden = hidden_.erase(hidden);
    }
}

void Register_Memory::drift(Instant now) {
    for (auto& [address, drift] : drifting_) {
        if (!drift.since) drift.since = now;
        const auto steps = (now - *drift.since) / drift.step;
        if (steps == 0) continue;
        slave_.setValue(address, static_cast<std::uint16_t>(slave_.value(address) + steps));
        *drift.since += steps * drift.step;
    }
}

void Register_Memory::storeDue(Instant now) {
    bool changed = false;
    while (!unstored_.empty() && unstored_.front().due <= now) {
        const Unstored& due = unstored_.front();
        const std::int32_t number = due.address + addressBase_;
        stored_.values[number] = due.value;
        stored_.live.erase(number);
        unstored_.pop_front();
        changed = true;
    }
    if (changed) keepStored();
}

void Register_Memory::keepStored() const {
    if (keep_) keep_(stored_.values);
}

} // namespace zorvane::simulator
