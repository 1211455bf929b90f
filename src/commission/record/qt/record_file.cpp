// SPDX-License-Identifier: MIT
#include "commission/record/qt/record_file.h"

#include "commission/folder/digests.h"
#include "commission/folder/native_runs.h"
#include "commission/record/record_deviations.h"
#include "commission/record/record_json.h"
#include "commission/record/record_of_run.h"
#include "commission/record/record_report.h"
#include "reports/export/byte_file.h"
#include "reports/qt/qt_archive_pdf.h"
#include "reports/qt/qt_page_exporters.h"
#include "reports/qt/qt_report_fonts.h"
#include "template/services/native_files.h"
#include "values/code_page.h"
#include "values/run_time_failure.h"

#include <filesystem>

namespace zorvane::commission {

namespace {

/// "2026-11-22T07:40:05.123Z" to the second.
std::string toTheSecond(const std::string& utc) {
    constexpr std::size_t seconds = 19;
    return utc.size() >= seconds ? utc.substr(0, seconds) + "Z" : "1970-01-01T00:00:00Z";
}

Kept_Heads keptHeads(const Record_Place& place, const std::string& sitesFile) {
    return keptOfJson(place.files.bytes(pathFromNative(sitesFile)).value_or(""));
}

} // namespace

std::optional<Record_Format> recordFormatOf(const std::string& path) {
    std::string ending = lowerCase(std::filesystem::path(path).extension().string());
    if (!ending.empty()) ending.erase(0, 1);
    if (ending == "json") return Record_Format{};
    if (ending == "htm") ending = "html";
    if (ending == "tiff") ending = "tif";
    const auto format = formatOfName(ending);
    return format ? std::optional(Record_Format{format}) : std::nullopt;
}

std::optional<Record> recordFrom(const Record_Place& place, const std::string& run) {
    auto record = recordOfRun(Native_Runs(place.runsFolder), run);
    if (record)
        record->deviations =
            deviationsOf(place.files, place.applicationFolder, *record,
                         pathFromNative(place.runsFolder + "/" + run + "/") + record->documentName);
    return record;
}

Record_Head headFor(const Record_Place& place, const std::string& run, const std::string& sitesFile,
                    const std::string& site) {
    const auto ofRun = headOfJson(Native_Runs(place.runsFolder).read(run, headFile).value_or(""));
    return ofRun && (site.empty() || site == ofRun->site) ? *ofRun : keptHeads(place, sitesFile).of(site);
}

bool keepHead(const Record_Place& place, const std::string& run, const std::string& sitesFile,
              const Record_Head& head) {
    Native_Runs runs(place.runsFolder);
    const std::string json = headJson(head);
    if (runs.read(run, headFile) == json) return true;
    Kept_Heads kept = keptHeads(place, sitesFile);
    kept.keep(head);
    const Opened_Run opened = runs.open(run);
    if (!opened.folder || !opened.folder->put(headFile, json).empty()) return false;
    bool written = false;
    (void)ignoringFailure([&] {
        writeByteFile(sitesFile, keptJson(kept));
        written = true;
    });
    return written;
}

std::string writeRecord(const Record& record, const std::string& nativePath, const Record_Format& format) {
    const std::string json = recordJson(record);
    if (!format.painted) {
        writeByteFile(nativePath, json);
        return shortHash(json);
    }
    const Qt_Text_Metrics metrics;
    Record_Report report(metrics, record, shortHash(json));
    if (*format.painted != Export_Format::Pdf) {
        writeByteFile(nativePath, exportReport(report, *format.painted, Qt_Page_Exporters()));
        return shortHash(json);
    }
    constexpr std::size_t identityDigits = 32;
    report.Run();
    const Archive_Stamp stamp{toUtf8(report.Caption), "Zorvane", toTheSecond(record.started.utc),
                              sha256(json).substr(0, identityDigits)};
    writeByteFile(std::filesystem::path(nativePath).replace_extension(".json").string(), json);
    writeByteFile(nativePath, archivePdf(report.Pages.document, stamp));
    return shortHash(json);
}

} // namespace zorvane::commission
