// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/testing/journal.h"
#include "template/testing/memory_files.h"

#include <memory>
#include <string>

namespace zorvane::doubles {

/// Files in memory; what is read and created goes to the journal.
class Recording_Files : public Memory_Files {
  public:
    explicit Recording_Files(Journal& journal) : journal_(journal) {}

    [[nodiscard]] std::string read(const std::string& path) override {
        journal_.add("read " + path);
        return Memory_Files::read(path);
    }
    [[nodiscard]] std::unique_ptr<Text_Writer> create(const std::string& path) override {
        journal_.add("create " + path);
        return Memory_Files::create(path);
    }

  private:
    Journal& journal_;
};

} // namespace zorvane::doubles
