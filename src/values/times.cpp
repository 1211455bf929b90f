// SPDX-License-Identifier: MIT
#include "values/times.h"

#include "values/numbers.h"

namespace zorvane {

std::string timeText(std::int32_t seconds) {
    const std::string rest = numberText(restSeconds(seconds));
    return numberText(wholeMinutes(seconds)) + ":" + (rest.size() == 1 ? "0" + rest : rest);
}

std::int32_t timeSeconds(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return 0;
    return toLong(Val(text.substr(0, colon)) * 60.0 + Val(text.substr(colon + 1)));
}

bool isTime(std::string_view text) {
    const std::size_t colon = text.find(':');
    return colon != std::string_view::npos && isNumeric(text.substr(0, colon)) &&
           isNumeric(text.substr(colon + 1));
}

void PRO_Tiempo_Texto(std::int32_t seconds, std::string& text) { text = timeText(seconds); }

void PRO_Texto_Tiempo(std::string_view text, std::int32_t& seconds) { seconds = timeSeconds(text); }

void PRO_Valida_Tiempo(std::string_view text, bool& ok) { ok = isTime(text); }

} // namespace zorvane
