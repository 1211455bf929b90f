// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

namespace zorvane::doubles {

/// An empty folder that lives as long as the object, owned by the user in force.
class Temporary_Folder {
  public:
    explicit Temporary_Folder(const std::filesystem::path& parent = std::filesystem::temp_directory_path())
        : path_((parent / ("zorvane-" + std::to_string(std::random_device()()))).string()) {
        if (!std::filesystem::create_directory(path_)) throw std::runtime_error("not a new folder: " + path_);
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

} // namespace zorvane::doubles
