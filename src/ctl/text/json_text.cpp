// SPDX-License-Identifier: MIT
#include "ctl/text/json_text.h"

#include "template/services/native_files.h"
#include "values/code_page.h"

#include <cmath>
#include <cstdint>
#include <ostream>

namespace zorvane::ctl {

Json jsonText(std::string_view text) { return toUtf8(text); }

Json jsonPath(std::string_view text) { return pathToNative(text); }

Json jsonFailure(const std::optional<Failure_Note>& failure) {
    if (!failure) return nullptr;
    return {{"number", failure->number}, {"description", jsonText(failure->description)}};
}

Json jsonNumber(double value) {
    constexpr double exactWhole = 9007199254740992.0; // 2 to the power 53
    if (std::abs(value) <= exactWhole && std::trunc(value) == value) return static_cast<std::int64_t>(value);
    return value;
}

void printJson(std::ostream& out, const Json& document) {
    out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

std::string compactJson(const Json& value) {
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace zorvane::ctl
