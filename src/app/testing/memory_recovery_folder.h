// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/testing/journal.h"
#include "recovery/recovery.h"

#include <map>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// Recovery copies in memory; writing and removing goes to the journal. A test may let its disk be full.
class Memory_Recovery_Folder : public Recovery_Folder {
  public:
    explicit Memory_Recovery_Folder(Journal& journal) : journal_(journal) {}

    std::map<std::string, std::string> texts;
    bool full = false;
    int writes = 0;

    [[nodiscard]] bool write(const std::string& name, const std::string& text) override {
        journal_.add((full ? "no room for copy " : "copy ") + name);
        if (full) return false;
        ++writes;
        texts[name] = text;
        return true;
    }
    void remove(const std::string& name) override {
        journal_.add("copy removed " + name);
        texts.erase(name);
    }
    [[nodiscard]] std::string beginning(const std::string& name) override {
        const auto found = texts.find(name);
        return found == texts.end() ? "" : found->second.substr(0, 4096);
    }
    [[nodiscard]] std::vector<std::string> list() override {
        std::vector<std::string> names;
        for (const auto& [name, text] : texts)
            names.push_back(name);
        return names;
    }
    [[nodiscard]] std::string path(const std::string& name) const override { return "/recovery/" + name; }

  private:
    Journal& journal_;
};

} // namespace zorvane::doubles
