// SPDX-License-Identifier: MIT
#pragma once

#include "template/identity_section.h"
#include "template/model/declara_zorvane.h"

#include <cstddef>
#include <vector>

namespace zorvane {

/// The requests of one question who is at the other end never are more than this.
inline constexpr std::size_t mostIdentityRequests = 3;

/// The registers that the question asks for: those of the marks in their order, of the serial number and of
/// the firmware. What no request can read isn't among them.
[[nodiscard]] std::vector<Register_Range> identityRegisters(const Identity_Section& section);

/// The ranges that are read for them, each with one request. Neighbours are joined, and so is what lies in
/// one scan block of the document. Where more would be needed than there may be (a request for objects takes
/// one), the later ones stay out.
[[nodiscard]] std::vector<Register_Range> identityReads(const Declara_Zorvane& document,
                                                        const Identity_Section& section);

/// The same for asking once more whether the controller is still the same one: without the firmware, which
/// tells nobody from another and often is a request of its own.
[[nodiscard]] std::vector<Register_Range> identityReadsAgain(const Declara_Zorvane& document,
                                                             const Identity_Section& section);

} // namespace zorvane
