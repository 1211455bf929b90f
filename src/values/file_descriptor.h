// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zorvane {

/// A descriptor of an open file, or none. It closes what it has.
class File_Descriptor {
  public:
    File_Descriptor() = default;
    explicit File_Descriptor(int number) : number_(number) {}
    ~File_Descriptor() { close(); }
    File_Descriptor(const File_Descriptor&) = delete;
    File_Descriptor& operator=(const File_Descriptor&) = delete;
    File_Descriptor(File_Descriptor&& other) noexcept : number_(other.release()) {}
    File_Descriptor& operator=(File_Descriptor&& other) noexcept;

    [[nodiscard]] int number() const noexcept { return number_; }
    [[nodiscard]] bool isOpen() const noexcept { return number_ >= 0; }
    void close() noexcept;

  private:
    int release() noexcept;

    int number_ = -1;
};

/// Writes all of the bytes; false leaves the reason in errno.
[[nodiscard]] bool writeAll(const File_Descriptor& file, std::string_view bytes);

} // namespace zorvane
