// SPDX-License-Identifier: MIT
#include "ctl/line/terminal_asker.h"

#include "ctl/document/notices.h"

namespace zorvane::ctl {

namespace {

/// A message of several lines as one.
std::string oneLine(const std::string& text) {
    std::string line;
    for (const char c : text)
        if (c != '\r' && c != '\n')
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    return line;
}

} // namespace

int Terminal_Asker::Msgb_Show(const std::string& prompt, int style, const std::string& /*title*/) {
    const bool wrong = (style & Msgb_Critical) != 0;
    if (wrong && told_.insert(prompt).second) printer_.line("zorvanectl: " + printablePath(oneLine(prompt)));
    return (style & Msgb_YesNo) != 0 ? Msgb_Code_Yes : Msgb_Code_Ok;
}

} // namespace zorvane::ctl
