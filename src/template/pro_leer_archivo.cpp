// SPDX-License-Identifier: MIT
#include "template/pro_leer_archivo.h"

#include "template/line_scanner.h"
#include "template/pro_interpreta_linea.h"

namespace zorvane {

namespace {

enum class Reading { Template, Configuration };

/// Reads the lines of a text in order. A configuration ends at the first rejected line; false tells of it.
bool readLines(Declara_Zorvane& document, Link_Notice& link, std::string_view text, Reading reading) {
    Line_Scanner scanner;
    while (const auto line = takeLine(text)) {
        ++document.Last_Line;
        const auto entry = scanner.scan(*line);
        if (!entry) continue;
        bool ok = true;
        PRO_Interpreta_Linea(document, link, scanner.section(), entry->key, entry->value,
                             scanner.sectionNumber(), ok);
        if (!ok && reading == Reading::Configuration) return false;
    }
    return true;
}

void countAlwaysBlocks(Declara_Zorvane& document) {
    document.Always_Block_Count = 0;
    const std::int32_t last = document.Holding_Blocks.upperBound();
    for (std::int32_t i = 0; i <= last; ++i)
        if (document.Holding_Blocks(i).Request == "ALWAYS") ++document.Always_Block_Count;
}

} // namespace

void PRO_Leer_INIFIle(Declara_Zorvane& document, const Reading_Services& services, const std::string& path) {
    document.Load_Failed = false;
    document.Last_Line = 0;
    if (!services.files.exists(path)) {
        services.asker.Msgb_Show("The ZTP file (" + path + ") was not found in: \r\n" +
                                     services.applicationFolder,
                                 Msgb_Critical, applicationTitle);
        document.Load_Failed = true;
        return;
    }
    readLines(document, services.link, services.files.read(path), Reading::Template);
    document.Last_Line = 0;
    countAlwaysBlocks(document);
}

void PRO_Leer_DefaultFIle(Declara_Zorvane& document, const Reading_Services& services,
                          const std::string& path, bool& ok) {
    document.Load_Failed = false;
    document.Last_Line = 0;
    document.Unlisted.clear();
    bool whole = false;
    if (!services.files.exists(path)) {
        services.asker.Msgb_Show("The default file was not found in: \r\n" + services.applicationFolder,
                                 Msgb_Information, applicationTitle);
        document.Load_Failed = true;
    } else {
        whole = readLines(document, services.link, services.files.read(path), Reading::Configuration);
    }
    ok = whole;
}

} // namespace zorvane
