// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane {

/// Takes one line off the front of a text. A line ends at CR LF or at a lone LF; a lone CR is a character; a
/// last line without an end counts. Nothing at the end of the text.
[[nodiscard]] std::optional<std::string_view> takeLine(std::string_view& text) noexcept;

/// A key line cut at its first "=": the key untrimmed, the value trimmed and then cut before its first ";".
struct Key_And_Value {
    std::string_view key;
    std::string_view value;
};

/// What the scanner keeps between lines: the section in force, with "#" for its number.
class Line_Scanner {
  public:
    /// Reads one line. A key line comes back; a comment, a section header, a line without a key give nothing.
    /// Failures: 5 for a header that is only "[", 6 for a section number beyond 32 bits.
    [[nodiscard]] std::optional<Key_And_Value> scan(std::string_view line);

    [[nodiscard]] const std::string& section() const noexcept { return section_; }
    [[nodiscard]] std::int32_t& sectionNumber() noexcept { return number_; }

  private:
    void enterSection(std::string_view line);

    std::string section_;
    std::int32_t number_ = 0; ///< kept by a header without two underscores
};

} // namespace zorvane
