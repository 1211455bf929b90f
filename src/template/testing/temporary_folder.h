// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace zorvane::doubles {

/// An empty folder that lives as long as the object, owned by the user in force.
class Temporary_Folder {
  public:
    explicit Temporary_Folder(const std::filesystem::path& parent = std::filesystem::temp_directory_path())
        : path_((parent / "zorvane-XXXXXX").string()) {
        if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder: " + path_);
    }
    ~Temporary_Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Temporary_Folder(const Temporary_Folder&) = delete;
    Temporary_Folder& operator=(const Temporary_Folder&) = delete;
    Temporary_Folder(Temporary_Folder&&) = delete;
    Temporary_Folder& operator=(Temporary_Folder&&) = delete;

    [[nodiscard]] const std::string& path() const noexcept { return path_; }

  private:
    std::string path_;
};

/// Takes the super-user's rights away for its lifetime, so that permissions count in a container too.
class Unprivileged {
  public:
    Unprivileged() {
        constexpr uid_t nobody = 65534;
        if (before_ == 0 && seteuid(nobody) != 0) throw std::runtime_error("can't become an ordinary user");
    }
    ~Unprivileged() {
        if (before_ == 0 && seteuid(before_) != 0) std::abort();
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    Unprivileged(Unprivileged&&) = delete;
    Unprivileged& operator=(Unprivileged&&) = delete;

  private:
    uid_t before_ = geteuid();
};

} // namespace zorvane::doubles
