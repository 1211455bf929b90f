// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace zorvane::doubles {

/// A locale whose decimal sign is a comma, for the time of a test. Where the machine has none, it is made.
class Comma_Locale {
  public:
    Comma_Locale() {
        if (std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr) return;
        const std::string made = folder_ / "de_DE.UTF-8";
        std::filesystem::create_directories(folder_);
        EXPECT_EQ(std::system(("localedef -i de_DE -f UTF-8 " + made).c_str()), 0);
        ::setenv("LOCPATH", folder_.c_str(), 1);
        EXPECT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    }
    ~Comma_Locale() {
        std::setlocale(LC_ALL, "C");
        ::unsetenv("LOCPATH");
        std::filesystem::remove_all(folder_);
    }
    Comma_Locale(const Comma_Locale&) = delete;
    Comma_Locale& operator=(const Comma_Locale&) = delete;

  private:
    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("zorvane-locale-" + std::to_string(::getpid()));
};

} // namespace zorvane::doubles
