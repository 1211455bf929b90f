// SPDX-License-Identifier: MIT
// Any bytes as a template to check: the check ends, findings lie in the file in the order of its lines, and a
// line on which the real reader stops has an error.

#include "checker/checker.h"
#include "fuzz/fuzz_document.h"
#include "fuzz/require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using checker::Finding;
using checker::Severity;
using fuzz::require;

bool hasErrorAt(const std::vector<Finding>& findings, std::int32_t line) {
    return std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
        return finding.severity == Severity::Error && (line == 0 || finding.line == line);
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const std::vector<Finding> findings =
        checker::checkTemplate(size % 2 == 0 ? "ABC.ZTP" : "kvrt.ztp", text);
    const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
    std::int32_t last = 1;
    for (const Finding& finding : findings) {
        require(finding.line >= last && finding.line <= lines, "a finding out of order or outside the file");
        require(!finding.what.empty() && !finding.why.empty() && !finding.instead.empty(),
                "a finding without a text");
        last = finding.line;
    }
    fuzz::Fuzz_Document document;
    if (const auto stop = document.readTemplate(text))
        require(hasErrorAt(findings, *stop), "the reader stops on a line without an error");
    return 0;
}
