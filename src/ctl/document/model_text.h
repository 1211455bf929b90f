// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/opened_document.h"

#include <iosfwd>

namespace zorvane::ctl {

/// Prints a document for people: the controller, its fields with their tables, and what the link scans and
/// writes. Very large tables are cut, and say so.
void printModel(std::ostream& out, const Opened_Document& opened);

} // namespace zorvane::ctl
