// SPDX-License-Identifier: MIT
#include "template/works_settings.h"

#include "template/line_scanner.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

namespace zorvane {

namespace {

void readLine(Works_Settings& settings, const Key_And_Value& line) {
    const std::string key = upperTrimmed(line.key);
    if (key == "SETTINGS") settings.line = line.value;
    if (key == "RTU") settings.unit = longValue(line.value);
}

} // namespace

Works_Settings readWorksSettings(std::string_view templateText) {
    Works_Settings settings;
    Line_Scanner scanner;
    while (const auto line = takeLine(templateText)) {
        (void)ignoringFailure([&] {
            const auto pair = scanner.scan(*line);
            if (pair && upperCase(scanner.section()) == "PORT_CONFIGURATION") readLine(settings, *pair);
        });
    }
    return settings;
}

} // namespace zorvane
