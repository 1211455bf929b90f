// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/run_store.h"

#include <functional>
#include <map>

namespace zorvane::commission::doubles {

/// Runs in memory. A test may make the disk full, or look at each line as it is written.
class Memory_Runs final : public Run_Store {
  public:
    [[nodiscard]] std::string place() const override { return "/state/runs"; }
    [[nodiscard]] std::vector<std::string> names() const override {
        std::vector<std::string> all;
        for (const auto& [name, files] : runs)
            all.push_back(name);
        return all;
    }
    [[nodiscard]] Opened_Run make(const std::string& stem) override {
        if (full) return {nullptr, "No space left on device"};
        for (int n = 1;; ++n) {
            const std::string name = stem + "-" + std::to_string(n);
            if (runs.contains(name)) continue;
            runs[name];
            return open(name);
        }
    }
    [[nodiscard]] Opened_Run open(const std::string& name) override {
        if (!runs.contains(name)) return {nullptr, "No such file or directory"};
        return {std::make_unique<Folder>(*this, name), {}};
    }
    [[nodiscard]] std::optional<std::string> read(const std::string& name,
                                                  std::string_view file) const override {
        const auto run = runs.find(name);
        if (run == runs.end()) return std::nullopt;
        const auto found = run->second.find(file);
        if (found == run->second.end()) return std::nullopt;
        return found->second;
    }
    void remove(const std::string& name) override { runs.erase(name); }

    using Files = std::map<std::string, std::string, std::less<>>;
    std::map<std::string, Files> runs;
    bool full = false;
    std::string refused;                               ///< a file that can't be put
    std::function<void(std::string_view line)> onLine; ///< before it is taken; may be empty

  private:
    class Folder final : public Run_Folder {
      public:
        Folder(Memory_Runs& runs, std::string name) : runs_(runs), name_(std::move(name)) {}
        [[nodiscard]] std::string name() const override { return name_; }
        [[nodiscard]] std::string put(std::string_view file, std::string_view bytes) override {
            if (runs_.full) return "No space left on device";
            if (file == runs_.refused) return "Permission denied";
            runs_.runs[name_][std::string(file)] = bytes;
            return {};
        }
        [[nodiscard]] std::string append(std::string_view line) override {
            if (runs_.full) return "No space left on device";
            if (runs_.onLine) runs_.onLine(line);
            runs_.runs[name_][std::string(journalFile)].append(line).append("\n");
            return {};
        }

      private:
        Memory_Runs& runs_;
        std::string name_;
    };
};

} // namespace zorvane::commission::doubles
