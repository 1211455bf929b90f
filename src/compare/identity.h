// SPDX-License-Identifier: MIT
#pragma once

#include "compare/controller_registers.h"
#include "template/identity_reads.h"
#include "template/identity_section.h"
#include "template/model/declara_zorvane.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::compare {

/// Whether the controller at the other end is the template's.
enum class Verdict { Is, Isnt, Cant_Tell };

/// "is", "isn't" or "can't tell".
[[nodiscard]] std::string verdictWord(Verdict verdict);

enum class Fit { Fits, Doesnt_Fit, Not_Read };

/// "fits", "doesn't fit" or "not read".
[[nodiscard]] std::string fitWord(Fit fit);

/// One thing that speaks for or against a controller's being the template's. Texts are in the code page.
struct Evidence {
    std::string registers; ///< "320-327", "116", or "object 1" for one of function 43/14
    std::string what;      ///< what stands there, for people; may be empty
    std::string expected;
    std::string found; ///< what was read; empty for what wasn't
    Fit result = Fit::Not_Read;
    std::optional<Unread> unread; ///< why it wasn't read

    bool operator==(const Evidence&) const = default;
};

/// Whether it is about an object of function 43/14.
[[nodiscard]] bool isObject(const Evidence& evidence);

/// What is expected of a block of the template; one that is refused speaks against the controller.
inline constexpr std::string_view readableRegisters = "registers that can be read";
[[nodiscard]] inline bool isRefusedBlock(const Evidence& evidence) {
    return evidence.expected == readableRegisters;
}
/// "register 320-327" or "object 1": where a piece of evidence stands.
[[nodiscard]] std::string placeText(const Evidence& evidence);

/// The answer to the question who is at the other end.
struct Identity {
    Verdict verdict = Verdict::Cant_Tell;
    std::string model; ///< the template's
    std::int32_t unit = 0;
    std::optional<std::string> serial; ///< nothing where the template names none, or it wasn't read
    std::optional<std::string> firmware;
    std::vector<Evidence> evidence;

    bool operator==(const Identity&) const = default;
};

/// What was read for the question beside the registers.
struct Identity_Readings {
    const Controller_Registers& registers;
    /// Of function 43/14, by number; nothing where it wasn't asked, so that objects tell nothing.
    std::optional<std::map<std::int32_t, std::string>> objects{};
    std::optional<Unread> objectsUnread{}; ///< why it gave none; nothing where it gave some
};

/// The answer by the section: it is the controller when all marks were read and fit, and isn't when one of
/// them doesn't. Without marks it can't tell.
[[nodiscard]] Identity identityByMarks(const Identity_Section& section, const std::string& model,
                                       std::int32_t unit, const Identity_Readings& readings);

/// A later answer by marks beside the first one: a mark that fitted and that the controller now says it
/// doesn't have (exception 2; of an object 1) doesn't fit any more.
[[nodiscard]] Identity identityAgain(const Identity& first, Identity now);

/// The answer for a template whose section tells nothing, from a reading of all its blocks: blocks refused
/// with exception 2, and in columns that aren't polled values outside their limits, codes that no list has,
/// and times that are none. Three of them, or as many as a fifth of those columns' cells, make Isnt; else it
/// can't tell. Evidence is only what speaks against it.
[[nodiscard]] Identity identityByCells(const Declara_Zorvane& document, std::int32_t unit,
                                       const Controller_Registers& registers);

/// The answer by whatever there is: by the marks, and where these can't tell also by the cells. `registers`
/// is a reading of all blocks and of `identityReads`.
[[nodiscard]] Identity identityOf(const Declara_Zorvane& document, const Identity_Section& section,
                                  std::int32_t unit, const Identity_Readings& readings);

/// Characters, or one number where they are none: what SERIAL and FIRMWARE stand for. Nothing when the
/// registers weren't read, or hold no character.
[[nodiscard]] std::optional<std::string> plateText(const Register_Range& range,
                                                   const Controller_Registers& registers);

} // namespace zorvane::compare
