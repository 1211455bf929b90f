#include "template/key_line.h"

#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

Numbered_Key twoUnderscoreKey(std::string_view key) {
    const std::size_t first = key.find('_');
    const std::size_t second = first == std::string_view::npos ? first : key.find('_', first + 1);
    if (second == std::string_view::npos) return {upperCase(key), 0};
    return openUnderscoreKey(key);
}

Numbered_Key oneUnderscoreKey(std::string_view key) {
    const std::size_t first = key.find('_');
    if (first == std::string_view::npos) return {upperCase(key), 0};
    return {upperCase(key.substr(0, first + 1)) + "#", longValue(key.substr(first + 1))};
}

Numbered_Key openUnderscoreKey(std::string_view key) {
    const std::size_t first = key.find('_');
    if (first == std::string_view::npos) return {upperCase(key), 0};
    const std::size_t second = key.find('_', first + 1);
    if (second == std::string_view::npos) return oneUnderscoreKey(key);
    return {upperCase(key.substr(0, first + 1)) + "#" + upperCase(key.substr(second)),
            longValue(key.substr(first + 1, second - first - 1))};
}

Field_Rec& Interpreter::field(std::int32_t number) const {
    Field_Rec& found = document.Fields(number);
    found.Touched = true;
    return found;
}

} // namespace zorvane
