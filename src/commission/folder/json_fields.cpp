// SPDX-License-Identifier: MIT
#include "commission/folder/json_fields.h"

namespace zorvane::commission {

const Json& memberOf(const Json& json, const char* name) noexcept {
    static const Json nothing;
    if (!json.is_object()) return nothing;
    const auto found = json.find(name);
    return found == json.end() ? nothing : *found;
}

std::optional<std::string> stringOf(const Json& value) {
    if (!value.is_string()) return std::nullopt;
    return value.get<std::string>();
}

bool isEvent(const Json& record, std::string_view event) noexcept {
    const Json& name = memberOf(record, "event");
    return name.is_string() && name.get_ref<const std::string&>() == event;
}

} // namespace zorvane::commission
