#include "reports/footer_texts.h"

#include "values/numbers.h"

namespace zorvane {

namespace {

constexpr std::size_t longestRoute = 50;
constexpr std::size_t keptInFront = 3;
constexpr std::size_t keptBehind = 48;

} // namespace

std::string routeText(const std::string& path) {
    if (path.size() <= longestRoute) return path;
    return path.substr(0, keptInFront) + "..." + path.substr(path.size() - keptBehind);
}

std::string dateText(const Report_Time& time) {
    return time.shortDate + "  " + numberText(std::int32_t{time.hour}) + ":" +
           twoDigits(std::int32_t{time.minute});
}

std::string pageText(std::int32_t page) { return "Page:  " + numberText(page) + " / "; }

} // namespace zorvane
