// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"
#include "compare/identity.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::compare {

/// How a reading of a controller ended.
enum class Reading_End {
    Done,      ///< all was asked for; what wasn't given says why
    Port_Lost, ///< the adapter is gone
    Cancelled, ///< somebody wanted the end
};

/// What came of it.
struct Reading_Result {
    Controller_Registers registers;
    Reading_End end = Reading_End::Done;
    std::string fault;     ///< of any other end than Done, in words
    bool answered = false; ///< whether anything came back at all

    [[nodiscard]] bool done() const { return end == Reading_End::Done; }
};

/// The registers that a document's scan blocks name. A block without registers isn't among them.
[[nodiscard]] std::vector<Register_Range> blocksOf(const Declara_Zorvane& document);

/// The same in as many ranges as it takes to ask for no register that can't be read back.
[[nodiscard]] std::vector<Register_Range> readableBlocks(const Declara_Zorvane& document,
                                                         const Identity_Section& section);

/// Reads each range with one request, as far as the port goes on.
[[nodiscard]] Reading_Result readRanges(Unit_Reader& reader, std::int32_t unit,
                                        const std::vector<Register_Range>& ranges);

/// Two readings of the same registers, so that what changes by itself is known.
struct Twice_Read {
    Reading_Result latest; ///< the later reading, and of what it didn't bring the earlier one
    Controller_Registers earlier;
};

/// How far the two readings are apart.
inline constexpr Micros secondReadingAfter = 2'000'000;

/// Reads the ranges, and `secondReadingAfter` later those again that could be read.
[[nodiscard]] Twice_Read readTwice(Unit_Reader& reader, std::int32_t unit,
                                   const std::vector<Register_Range>& ranges);

/// Whom to ask who is at the other end.
struct Identity_Question {
    const Declara_Zorvane& document;
    const Identity_Section& section;
    Unit_Reader& reader;
    std::int32_t unit = 0;
};

/// What came of asking for the objects of function 43/14.
struct Objects_Reading {
    /// By number; empty when the controller refuses the function or is silent. Nothing when none was asked
    /// for.
    std::optional<std::map<std::int32_t, std::string>> objects{};
    std::optional<Unread> unread{}; ///< why it gave none; nothing where it gave some
    Unit_Answer answer{};           ///< how the request ended, once there was one
};

/// Asks for the objects that the section names, with one request, where it allows that.
[[nodiscard]] Objects_Reading readObjects(Unit_Reader& reader, std::int32_t unit,
                                          const Identity_Section& section);

/// The answer, or how the reading for it ended.
struct Identity_Result {
    Identity identity;
    Reading_End end = Reading_End::Done;
    std::string fault;
    bool answered = false; ///< whether anything came back at all
};

/// Asks for the marks, with at most `mostIdentityRequests`.
[[nodiscard]] Identity_Result askForMarks(const Identity_Question& question);

/// Asks for the marks and, where these can't tell, for all blocks.
[[nodiscard]] Identity_Result askWhoIsThere(const Identity_Question& question);

/// All that a comparison learns of a controller.
struct Looked_At {
    Twice_Read read;
    Identity identity; ///< by the marks, and where these can't tell by what was read
};

/// How far a look at a controller is: so many of so many requests.
using On_Request = std::function<void(std::size_t done, std::size_t all)>;

/// Asks a controller who it is, and reads all its blocks twice. `told` is called before each request and
/// after the last one; may be empty.
[[nodiscard]] Looked_At lookAt(const Identity_Question& question, const On_Request& told = {});

} // namespace zorvane::compare
