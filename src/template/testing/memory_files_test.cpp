// SPDX-License-Identifier: MIT
#include "template/testing/files_suite.h"
#include "template/testing/memory_files.h"

#include <gtest/gtest.h>

namespace zorvane::doubles {
namespace {

class Memory_Kind : public Files_Under_Test {
  public:
    Memory_Kind() { files_.addFolder("/box"); }
    [[nodiscard]] Files& files() override { return files_; }
    [[nodiscard]] std::string folder() const override { return "/box/"; }
    void refuse(const std::string& name) override { files_.refuse("/box/" + name); }

  private:
    Memory_Files files_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, Files_Suite, Memory_Kind);

} // namespace
} // namespace zorvane::doubles
