// SPDX-License-Identifier: MIT
#include "commission/folder/state_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace zorvane::commission {
namespace {

/// The user's environment with these two, until the test ends; nothing: without it.
class State_Folder : public ::testing::Test {
  protected:
    static void set(const char* home, const char* state) {
        setOne("HOME", home);
        setOne("XDG_STATE_HOME", state);
    }
    void TearDown() override { set(home_.c_str(), state_.empty() ? nullptr : state_.c_str()); }

  private:
    static void setOne(const char* name, const char* text) {
        (void)(text != nullptr ? ::setenv(name, text, 1) : ::unsetenv(name));
    }
    static std::string textOf(const char* name) {
        const char* const text = std::getenv(name);
        return text == nullptr ? "" : text;
    }
    std::string home_ = textOf("HOME");
    std::string state_ = textOf("XDG_STATE_HOME");
};

TEST_F(State_Folder, IsTheUsersOwn) {
    set("/home/ann", nullptr);
    EXPECT_EQ(userStateFolder(), "/home/ann/.local/state/zorvane");
    set("/home/ann", "");
    EXPECT_EQ(userStateFolder(), "/home/ann/.local/state/zorvane");
    set("/home/ann", "/var/ann");
    EXPECT_EQ(userStateFolder(), "/var/ann/zorvane");
    set("/home/ann", "state");
    EXPECT_EQ(userStateFolder(), "/home/ann/.local/state/zorvane") << "one that isn't absolute doesn't count";
}

} // namespace
} // namespace zorvane::commission
