// SPDX-License-Identifier: MIT
#include "cells/format/cell_limits.h"

#include "cells/format/cell_paths.h"
#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

const Limits signedRegister{"-32768", "32767"};
const Limits unsignedRegister{"0", "65535"};

bool isUnsigned(const Cell_Rec& cell) {
    return cellFormat(cell.Format, paths::typing.limits) == Cell_Format::Unsigned;
}

bool isBlank(std::string_view text) { return trimBlanks(text).empty(); }

Limits unsignedLimits(Limits limits) {
    if (isBlank(limits.high) || Val(limits.high) > 65535.0) limits.high = unsignedRegister.high;
    if (isBlank(limits.low) || Val(limits.low) < 0.0) limits.low = unsignedRegister.low;
    return limits;
}

Limits numericLimits(Limits limits) {
    if (isBlank(limits.high)) limits.high = signedRegister.high;
    if (isBlank(limits.low)) limits.low = signedRegister.low;
    return limits;
}

} // namespace

bool checksLimits(const Cell_Rec& definition) {
    const Column_Kind kind = columnKind(definition.Column_Type);
    return kind == Column_Kind::Number || kind == Column_Kind::Unsigned || kind == Column_Kind::Time;
}

Limits filledLimits(const Cell_Rec& definition, const Cell_Rec& cell) {
    Limits limits{cell.Min_Value, cell.Max_Value};
    if (!checksLimits(definition)) return limits;
    if (isUnsigned(cell)) return unsignedLimits(std::move(limits));
    const Column_Kind kind = columnKind(definition.Column_Type);
    if (kind == Column_Kind::Number) return numericLimits(std::move(limits));
    // A time column fills in both or none, and only where nothing at all stands.
    if (kind == Column_Kind::Time && limits.low.empty() && limits.high.empty()) return signedRegister;
    return limits;
}

bool withinLimits(std::string_view number, const Limits& limits) {
    return !(Val(number) > Val(limits.high) || Val(number) < Val(limits.low));
}

Limits namedLimits(const Limits& limits) {
    return {limits.low.empty() ? signedRegister.low : limits.low,
            limits.high.empty() ? signedRegister.high : limits.high};
}

Limits registerWidth(const Cell_Rec& cell) { return isUnsigned(cell) ? unsignedRegister : signedRegister; }

bool fitsRegister(std::string_view number, const Limits& width) {
    const double value = Val(number);
    return value >= Val(width.low) && value <= Val(width.high);
}

} // namespace zorvane
