// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/register_range.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// One mark by which a controller is told: the lines of [IDENTITY] with the same number. A mark of a number
/// has `registers`, one of a text `text`; a template that gives both to one number has two in one.
struct Identity_Mark {
    std::int32_t number = 0;
    std::optional<Register_Range> registers{}; ///< REGISTER_k, the first register the upper one of a number
    std::optional<std::int64_t> value{};       ///< VALUE_k
    std::optional<std::int64_t> low{};         ///< LOW_k
    std::optional<std::int64_t> high{};        ///< HIGH_k
    std::optional<std::int64_t> mask{};        ///< MASK_k, taken before the comparison
    std::optional<Register_Range> text{};      ///< TEXTAT_k, two characters a register
    std::optional<std::string> is{};           ///< IS_k, without blanks at its ends
    std::string what{};                        ///< WHAT_k: what it is, for people

    /// Whether there is a number to compare, and what to compare it with.
    [[nodiscard]] bool tellsByNumber() const { return registers && (value || low || high); }
    [[nodiscard]] bool tellsByText() const { return text && is && !is->empty(); }

    bool operator==(const Identity_Mark&) const = default;
};

/// A register that changes the line itself: what of it ("unit", "baud"), in lower case.
struct Line_Register {
    std::string what;
    std::int32_t number = 0;

    bool operator==(const Line_Register&) const = default;
};

/// What a template says in [IDENTITY]: by which registers its controller is told from others, and which
/// registers need care when values are compared and sent. The interpreter knows nothing of it.
struct Identity_Section {
    bool present = false;                            ///< the template has such a section
    std::vector<Identity_Mark> marks;                ///< by rising number
    std::optional<Register_Range> serial{};          ///< characters, or a number
    std::optional<Register_Range> firmware{};        ///< the same
    std::vector<Register_Range> writeOnly;           ///< can't be read back
    std::vector<Register_Range> last;                ///< written after all others, in the template's order
    std::vector<Register_Range> leaveOut;            ///< never compared nor sent
    std::vector<Line_Register> link;                 ///< in the template's order
    bool objects = false;                            ///< function 43/14 may be asked
    std::map<std::int32_t, std::string> objectTexts; ///< OBJECT_k, without blanks at its ends

    /// Whether anything in it tells one controller from another.
    [[nodiscard]] bool tells() const;

    bool operator==(const Identity_Section&) const = default;
};

/// Whether a register lies in one of the ranges.
[[nodiscard]] bool holdsRegister(const std::vector<Register_Range>& ranges, std::int32_t number);

/// Reads the section out of a template's whole text. Lines are cut as the template's reader cuts them,
/// numbers are taken as elsewhere; a line that makes no sense is passed over, and so is one that would end
/// the reader. Of a key that comes twice the later line counts.
[[nodiscard]] Identity_Section readIdentity(std::string_view templateText);

/// The name of the section.
inline constexpr std::string_view identitySection = "IDENTITY";

/// Its keys in upper case, with "#" for a number.
[[nodiscard]] std::vector<std::string_view> identityKeys();

} // namespace zorvane
