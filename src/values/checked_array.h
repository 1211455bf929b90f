// SPDX-License-Identifier: MIT
#pragma once

#include "values/box.h"
#include "values/run_time_failure.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zorvane {

/// An array with bounds `Lower` to `upperBound()` that may also not be dimensioned at all. Every access
/// checks its index; a bad one, and a question for the bound of an array without dimensions, is failure 9.
template <class T, std::int32_t Lower = 0> class Checked_Array {
  public:
    /// Gives the array new bounds; all entries are empty. An upper bound below `Lower` is failure 9.
    void redim(std::int32_t upper) {
        requireUpper(upper);
        entries_.emplace(count(upper));
    }

    /// Gives the array new bounds and keeps the entries that lie within them.
    void redimPreserve(std::int32_t upper) {
        requireUpper(upper);
        if (!entries_) entries_.emplace();
        entries_->resize(count(upper));
    }

    /// Takes the dimensions away.
    void erase() { entries_.reset(); }

    [[nodiscard]] bool dimensioned() const noexcept { return static_cast<bool>(entries_); }

    [[nodiscard]] std::int32_t upperBound() const {
        if (!entries_) throw Run_Time_Failure(Failure::Subscript);
        return static_cast<std::int32_t>(entries_->size()) + Lower - 1;
    }

    [[nodiscard]] T& operator()(std::int32_t index) {
        const std::size_t place = offset(index); // first: without dimensions there are no entries
        return (*entries_)[place];
    }
    [[nodiscard]] const T& operator()(std::int32_t index) const {
        const std::size_t place = offset(index);
        return (*entries_)[place];
    }

  private:
    static void requireUpper(std::int32_t upper) {
        if (upper < Lower) throw Run_Time_Failure(Failure::Subscript);
    }
    static std::size_t count(std::int32_t upper) {
        return static_cast<std::size_t>(static_cast<std::int64_t>(upper) - Lower + 1);
    }
    [[nodiscard]] std::size_t offset(std::int32_t index) const {
        const auto place = static_cast<std::int64_t>(index) - Lower;
        if (place < 0 || !entries_ || place >= static_cast<std::int64_t>(entries_->size()))
            throw Run_Time_Failure(Failure::Subscript);
        return static_cast<std::size_t>(place);
    }

    Box<std::vector<T>> entries_; ///< nothing: no dimensions
};

} // namespace zorvane
