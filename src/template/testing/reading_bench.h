// SPDX-License-Identifier: MIT
#pragma once

#include "template/pro_leer_archivo.h"
#include "template/testing/memory_files.h"
#include "template/testing/recording_link_notice.h"
#include "template/testing/scripted_asker.h"

#include <string>

namespace zorvane::doubles {

/// A document ready for a template as opening a file makes it, with everything that reading needs. Texts are
/// given as they would stand in a file; the application folder is "/app".
struct Reading_Bench {
    Reading_Bench() {
        PRO_Limpia_Modelo(document);
        PRO_Prepara_Lectura(document);
        document.Holding_Blocks.redim(0);
    }

    void readTemplate(const std::string& text) {
        files.put("/app/ABC.ZTP", text);
        PRO_Leer_INIFIle(document, services(), "/app/ABC.ZTP");
    }

    /// Whether the whole file was read and no line rejected.
    bool readConfiguration(const std::string& text) {
        files.put("/home/site7.ABC", text);
        bool ok = false;
        PRO_Leer_DefaultFIle(document, services(), "/home/site7.ABC", ok);
        return ok;
    }

    [[nodiscard]] Reading_Services services() { return {files, asker, link, "/app"}; }

    [[nodiscard]] Cell_Rec& cell(std::int32_t field, std::int32_t row, std::int32_t column) {
        return document.Fields(field).Cells(row, column);
    }

    Declara_Zorvane document;
    Memory_Files files;
    Scripted_Asker asker;
    Recording_Link_Notice link;
};

} // namespace zorvane::doubles
