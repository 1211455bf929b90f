// SPDX-License-Identifier: MIT
#pragma once

#include "compare/identity.h"
#include "ctl/text/json_text.h"

#include <iosfwd>

namespace zorvane::ctl {

/// {"verdict","model","unit","serial","firmware","evidence":[{"register","what","expected","found","result"}]}.
/// What wasn't read is null.
[[nodiscard]] Json identityJson(const compare::Identity& identity);

/// The same for people.
void printIdentity(std::ostream& out, const compare::Identity& identity);

/// 0 for is, 5 for isn't, 7 for can't tell.
[[nodiscard]] int identityExit(compare::Verdict verdict);

} // namespace zorvane::ctl
