// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/testing/journal.h"
#include "template/services/settings_store.h"

#include <map>
#include <string>

namespace zorvane::doubles {

/// Settings in memory, by "Application/Section/Key". What is written goes to the journal.
class Memory_Settings : public Settings_Store {
  public:
    explicit Memory_Settings(Journal& journal) : journal_(journal) {}

    std::map<std::string, std::string> texts;

    [[nodiscard]] std::string GetSetting(const std::string& app, const std::string& section,
                                         const std::string& key, const std::string& defaultText) override {
        const auto found = texts.find(app + "/" + section + "/" + key);
        return found == texts.end() ? defaultText : found->second;
    }
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& text) override {
        texts[app + "/" + section + "/" + key] = text;
        journal_.add("setting " + section + "/" + key + " = " + text);
    }

  private:
    Journal& journal_;
};

} // namespace zorvane::doubles
