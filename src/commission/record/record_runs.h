// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/run_store.h"
#include "commission/record/record.h"

#include <string>
#include <utility>
#include <vector>

namespace zorvane::commission {

/// The one run that a record holds, to be looked at as if its folder were there. Nothing can be put into it.
class Record_Runs final : public Run_Store {
  public:
    /// `place` is where the record lies, for people.
    Record_Runs(Record record, std::string place) : record_(std::move(record)), place_(std::move(place)) {}

    [[nodiscard]] std::string place() const override { return place_; }
    [[nodiscard]] std::vector<std::string> names() const override { return {record_.run}; }
    [[nodiscard]] Opened_Run make(const std::string& /*stem*/) override { return {nullptr, closed()}; }
    [[nodiscard]] Opened_Run open(const std::string& /*name*/) override { return {nullptr, closed()}; }
    [[nodiscard]] std::optional<std::string> read(const std::string& name,
                                                  std::string_view file) const override {
        if (name != record_.run) return std::nullopt;
        if (file == record_.documentName) return record_.document;
        const auto found = record_.folder.find(std::string(file));
        return found == record_.folder.end() ? std::nullopt : std::optional(found->second);
    }
    void remove(const std::string& /*name*/) override {}

  private:
    static std::string closed() { return "a record can't be changed"; }

    Record record_;
    std::string place_;
};

} // namespace zorvane::commission
