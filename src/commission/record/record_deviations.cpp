// SPDX-License-Identifier: MIT
#include "commission/record/record_deviations.h"

#include "commission/folder/digests.h"
#include "compare/comparison.h"
#include "template/identity_section.h"
#include "template/pro_leer_archivo.h"
#include "template/services/asker.h"
#include "template/services/file_names.h"
#include "template/services/link_notice.h"
#include "values/run_time_failure.h"

#include <map>

namespace zorvane::commission {

namespace {

struct Nobody_Asked final : Asker {
    int Msgb_Show(const std::string&, int, const std::string&) override { return Msgb_Code_Ok; }
};
struct No_Link final : Link_Notice {
    void SetTimings(std::int32_t, std::int32_t) override {}
    void SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) override {}
    void SetAddressBase(std::int32_t) override {}
};

/// Reads a template, and a configuration file over it. False when it wasn't read to its end.
bool readQuietly(Declara_Zorvane& document, const Reading_Services& services, const std::string& ztp,
                 const std::optional<std::string>& configuration) {
    PRO_Limpia_Modelo(document);
    PRO_Prepara_Lectura(document);
    // The count of scan blocks may fail after the last line: then all of it was read.
    const bool failed = !ignoringFailure([&] { PRO_Leer_INIFIle(document, services, ztp); });
    if (document.Load_Failed || (failed && document.Last_Line > 0)) return false;
    if (!configuration) return true;
    bool good = true;
    takeName(document, *configuration);
    const bool read =
        ignoringFailure([&] { PRO_Leer_DefaultFIle(document, services, *configuration, good); });
    return read && good && !document.Load_Failed;
}

} // namespace

std::vector<Record_Deviation> deviationsFrom(const Declara_Zorvane& factory, const Declara_Zorvane& before,
                                             const Identity_Section& section,
                                             const std::vector<Record_Row>& rows) {
    std::map<Cell_Place, std::string> verified;
    for (const Record_Row& row : rows)
        if (row.state == "verified") verified[{row.field, row.row, row.column}] = row.readBack;
    const compare::Document_Side left(factory);
    const compare::Document_Side right(before);
    std::vector<Record_Deviation> deviations;
    for (const compare::Row& row : compare::comparisonOf({factory, section, left, right}).rows) {
        const auto changed = verified.find(row.place);
        const bool differs = changed != verified.end()
                                 ? changed->second != row.left.shown
                                 : row.sign == compare::Sign::Differs ||
                                       (row.sign == compare::Sign::One_Side && row.right.value);
        if (row.address.empty() || !differs) continue;
        deviations.push_back({row.page, row.name, row.heading, row.address, row.left.shown,
                              changed != verified.end() ? changed->second : row.right.shown});
    }
    return deviations;
}

std::optional<std::vector<Record_Deviation>> deviationsOf(Files& files, const std::string& applicationFolder,
                                                          const Record& record,
                                                          const std::string& documentPath) {
    const Record_File& used = record.files.front();
    const auto bytes = files.bytes(used.path);
    if (!bytes || sha256(*bytes) != used.sha256 || record.document.empty()) return std::nullopt;
    Nobody_Asked asker;
    No_Link link;
    const Reading_Services services{files, asker, link, applicationFolder};
    Declara_Zorvane factory;
    Declara_Zorvane before;
    if (!readQuietly(factory, services, used.path, std::nullopt)) return std::nullopt;
    if (!readQuietly(before, services, used.path, documentPath)) return std::nullopt;
    return deviationsFrom(factory, before, readIdentity(*bytes), record.rows);
}

} // namespace zorvane::commission
