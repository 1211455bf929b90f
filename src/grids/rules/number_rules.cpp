// SPDX-License-Identifier: MIT
#include "grids/rules/number_rules.h"

#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"

#include <cmath>

namespace zorvane {

namespace {

const Limits signedRegister{"-32768", "32767"};
const Limits unsignedRegister{"0", "65535"};

/// The exact word, where every other format word is compared in upper case.
bool isUnsigned(const Cell_Rec& cell) { return cell.Format == "NUMERIC_UNSIGNED"; }

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
    const std::string type = upperCase(definition.Column_Type);
    return type == "NUMERIC" || type == "NUMERIC_UNSIGNED" || type == "TIME";
}

Limits filledLimits(const Cell_Rec& definition, const Cell_Rec& cell) {
    Limits limits{cell.Min_Value, cell.Max_Value};
    if (!checksLimits(definition)) return limits;
    if (isUnsigned(cell)) return unsignedLimits(std::move(limits));
    const std::string type = upperCase(definition.Column_Type);
    if (type == "NUMERIC") return numericLimits(std::move(limits));
    // A time column fills in both or none, and only where nothing at all stands.
    if (type == "TIME" && limits.low.empty() && limits.high.empty()) return signedRegister;
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
    const double value = strictDouble(number);
    return value >= Val(width.low) && value <= Val(width.high);
}

std::int32_t rawNegative(std::string_view number, const Cell_Rec& definition) {
    const std::string_view format = definition.Bits_Negative_Format;
    if (isBlank(format) || !isNumeric(format)) return 0;
    const double value = strictDouble(number);
    if (Val(format) >= 16.0) return value < 0.0 ? toLong(65536.0 - std::fabs(value)) : 0;
    const std::int16_t bits = toInteger(Val(format));
    return bits >= 1 && value < 0.0 ? toLong(std::fabs(value) + signBit(bits)) : 0;
}

} // namespace zorvane
