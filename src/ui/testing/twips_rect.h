// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/twips_scale.h"

#include <QRect>

namespace zorvane::doubles {

/// A place in twips at 96 dots to the inch, to the nearest pixel.
inline QRect twips(double left, double top, double width, double height) {
    return ui::Twips_Scale{}.rect({left, top, width, height});
}

} // namespace zorvane::doubles
