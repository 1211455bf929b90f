// SPDX-License-Identifier: MIT
#include "commission/record/record_report.h"

#include "values/numbers.h"

namespace zorvane::commission {

namespace {

Sections_Texts textsOf(const Record& record, const std::string& shortHash) {
    const std::string subject = record.controller.model + ", unit " + numberText(record.controller.unit);
    return {"Record of a change: " + subject, record.run, "Record " + shortHash};
}

} // namespace

Record_Report::Record_Report(const Text_Metrics& metrics, const Record& record, const std::string& shortHash)
    : Sections_Report(metrics, textsOf(record, shortHash), sectionsOf(record)) {}

} // namespace zorvane::commission
