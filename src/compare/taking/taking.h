// SPDX-License-Identifier: MIT
#pragma once

#include "compare/comparison.h"
#include "edit/wanted_value.h"

#include <string>
#include <vector>

namespace zorvane::compare {

/// A row whose value the document doesn't take.
struct Not_Taken {
    const Row* row = nullptr; ///< of the comparison
    std::string why;          ///< after a colon: "above its limit 1400"
};

/// What would become of rows whose values a document is to take over. Every row is in one of the two lists.
struct Taking {
    std::vector<edit::Taken_Value> taken;
    std::vector<Not_Taken> leftOut;

    /// How many of the values taken change something.
    [[nodiscard]] std::size_t changes() const;
};

/// Which side of a row the document takes from.
enum class Taken_Side { Left, Right };

/// Judges the values of one side for the document. Of a list it is the code that counts, one without an entry
/// isn't taken; nothing else is replaced by a limit or by 0 either. The document stays as it is.
[[nodiscard]] Taking judgedTaking(const Declara_Zorvane& document, const std::vector<const Row*>& rows,
                                  Taken_Side from);

/// "3 values taken." and what wasn't: "Output Setup, R6 pulse, Value: above its limit 1400." in a line each,
/// at most `mostListed` of them.
[[nodiscard]] std::string takingText(const Taking& taking);

/// Lines that `takingText` gives to what wasn't taken, before "and 5 more".
inline constexpr std::size_t mostListed = 20;

} // namespace zorvane::compare
