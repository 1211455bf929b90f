// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zorvane {

/// Calls `store(position, item)` for each item of a comma list, positions from 1. A list of n commas has n +
/// 1 items, an empty text has one. Items are handed over as they stand. `store` returns false to end the list
/// there.
template <class Store> void forEachItem(std::string_view list, Store&& store) {
    std::int32_t position = 0;
    std::size_t start = 0;
    for (;;) {
        const std::size_t comma = list.find(',', start);
        ++position;
        if (comma == std::string_view::npos) {
            store(position, list.substr(start));
            return;
        }
        if (!store(position, list.substr(start, comma - start))) return;
        start = comma + 1;
    }
}

} // namespace zorvane
