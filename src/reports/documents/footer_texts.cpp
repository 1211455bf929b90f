// SPDX-License-Identifier: MIT
#include "reports/documents/footer_texts.h"

#include "template/services/native_files.h"
#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

constexpr std::size_t longestRoute = 50;
constexpr std::size_t keptInFront = 3;
constexpr std::size_t keptBehind = 48;

} // namespace

std::string routeText(const std::string& path) {
    std::string shown = fromUtf8(pathToNative(path));
    if (shown.size() <= longestRoute) return shown;
    return shown.substr(0, keptInFront) + "..." + shown.substr(shown.size() - keptBehind);
}

std::string dateText(const Report_Time& time) {
    return time.shortDate + "  " + numberText(std::int32_t{time.hour}) + ":" +
           twoDigits(std::int32_t{time.minute});
}

std::string pageText(std::int32_t page) { return "Page:  " + numberText(page) + " / "; }

} // namespace zorvane
