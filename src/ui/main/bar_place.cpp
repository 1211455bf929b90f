// SPDX-License-Identifier: MIT
#include "ui/main/bar_place.h"

#include <algorithm>

namespace zorvane::ui {

namespace {

constexpr int shareOfGrid = 3;

} // namespace

bool holdsOneLineOnly(const Bar_Room& room) { return room.gridHeight / shareOfGrid < room.lineHeight; }

QRect barPlace(const Bar_Room& room, int neededHeight) {
    const bool oneLine = holdsOneLineOnly(room);
    const int height = oneLine ? room.lineHeight : std::min(neededHeight, room.gridHeight / shareOfGrid);
    const int wanted = oneLine ? room.boxBottom : room.cells.top() + room.cells.height();
    const int bottom = std::min(wanted, room.clientHeight);
    return {room.cells.left(), std::max(0, bottom - height), room.cells.width(), height};
}

int coveredCells(const Bar_Room& room, const QRect& bar) {
    const int below = room.cells.top() + room.cells.height() - bar.top();
    return std::clamp(below, 0, std::max(0, room.cells.height()));
}

} // namespace zorvane::ui
