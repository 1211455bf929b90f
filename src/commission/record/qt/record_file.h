// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/run_store.h"
#include "commission/record/record.h"
#include "commission/record/record_head.h"
#include "reports/export/export_format.h"
#include "template/services/files.h"

#include <optional>
#include <string>

namespace zorvane::commission {

/// A format of a record's file.
struct Record_Format {
    std::optional<Export_Format> painted; ///< nothing: JSON
};

/// As the file's ending names it; nothing for any other ending.
[[nodiscard]] std::optional<Record_Format> recordFormatOf(const std::string& path);

/// Where a record's parts lie.
struct Record_Place {
    Files& files;
    std::string applicationFolder;
    std::string runsFolder; ///< UTF-8
};

/// The record of a run, with what deviates from the factory's values, as far as its template is as it was.
/// Head and tick list are empty. Nothing when there is no such run.
[[nodiscard]] std::optional<Record> recordFrom(const Record_Place& place, const std::string& run);

/// The head that a run's record had last, else what is kept of the site.
[[nodiscard]] Record_Head headFor(const Record_Place& place, const std::string& run,
                                  const std::string& sitesFile, const std::string& site);
/// Keeps a head with the run and for the site; false when it couldn't be.
[[nodiscard]] bool keepHead(const Record_Place& place, const std::string& run, const std::string& sitesFile,
                            const Record_Head& head);

/// Writes the record, a PDF with its JSON beside it, and gives its short hash. Failures are those of
/// `writeByteFile`. REQUIRES: a QGuiApplication, for all but JSON.
[[nodiscard]] std::string writeRecord(const Record& record, const std::string& nativePath,
                                      const Record_Format& format);

} // namespace zorvane::commission
