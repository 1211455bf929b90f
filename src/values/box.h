// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

namespace zorvane {

/// A value that may be absent and takes one pointer then. Copies are deep.
template <class T> class Box {
  public:
    Box() = default;
    Box(const Box& other) : held_(copyOf(other)) {}
    Box(Box&&) noexcept = default;
    Box& operator=(const Box& other) {
        held_ = copyOf(other);
        return *this;
    }
    Box& operator=(Box&&) noexcept = default;
    ~Box() = default;

    [[nodiscard]] explicit operator bool() const noexcept { return held_ != nullptr; }
    [[nodiscard]] T& operator*() noexcept { return *held_; }
    [[nodiscard]] const T& operator*() const noexcept { return *held_; }
    [[nodiscard]] T* operator->() noexcept { return held_.get(); }
    [[nodiscard]] const T* operator->() const noexcept { return held_.get(); }

    template <class... Arguments> void emplace(Arguments&&... arguments) {
        held_ = std::make_unique<T>(std::forward<Arguments>(arguments)...);
    }
    void reset() noexcept { held_.reset(); }

  private:
    static std::unique_ptr<T> copyOf(const Box& other) {
        return other.held_ ? std::make_unique<T>(*other.held_) : nullptr;
    }

    std::unique_ptr<T> held_;
};

} // namespace zorvane
