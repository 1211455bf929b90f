// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zorvane {

/// A key with the number taken out of it: `COL_7_WIDTH` is "COL_#_WIDTH" and 7. The key is upper case.
struct Numbered_Key {
    std::string key;
    std::int32_t number = 0; ///< 0 when the key holds none
};

/// The number stands between the first two underscores; a key with fewer stays as it is.
[[nodiscard]] Numbered_Key twoUnderscoreKey(std::string_view key);

/// The number is all that follows the first underscore: `ROWADDRESS_12` is "ROWADDRESS_#" and 12.
[[nodiscard]] Numbered_Key oneUnderscoreKey(std::string_view key);

/// The number follows the first underscore and ends at the second, if there is one.
[[nodiscard]] Numbered_Key openUnderscoreKey(std::string_view key);

} // namespace zorvane
