// SPDX-License-Identifier: MIT
#pragma once

#include "values/box.h"

#include <ostream>
#include <string>
#include <string_view>

namespace zorvane {

/// A text that is mostly empty and takes one pointer then. It reads like a std::string, and is replaced as a
/// whole.
class Seldom_Text {
  public:
    Seldom_Text() = default;
    Seldom_Text(std::string_view text) { assign(text); }   // NOLINT(google-explicit-constructor)
    Seldom_Text(const char* text) { assign(text); }        // NOLINT(google-explicit-constructor)
    Seldom_Text(const std::string& text) { assign(text); } // NOLINT(google-explicit-constructor)

    [[nodiscard]] bool empty() const noexcept { return !text_; }
    [[nodiscard]] const std::string& text() const noexcept {
        static const std::string none;
        return text_ ? *text_ : none;
    }
    operator const std::string&() const noexcept { return text(); } // NOLINT(google-explicit-constructor)
    operator std::string_view() const noexcept { return text(); }   // NOLINT(google-explicit-constructor)

    friend bool operator==(const Seldom_Text& a, const Seldom_Text& b) noexcept {
        return a.text() == b.text();
    }
    friend bool operator==(const Seldom_Text& a, std::string_view b) noexcept { return a.text() == b; }
    friend bool operator==(const Seldom_Text& a, const std::string& b) noexcept { return a.text() == b; }
    friend bool operator==(const Seldom_Text& a, const char* b) noexcept { return a.text() == b; }
    friend std::ostream& operator<<(std::ostream& out, const Seldom_Text& text) { return out << text.text(); }

  private:
    void assign(std::string_view text) {
        if (!text.empty()) text_.emplace(text);
    }

    Box<std::string> text_;
};

} // namespace zorvane
