// SPDX-License-Identifier: MIT
#include "checker/testing/reader_stop.h"

#include "template/pro_leer_archivo.h"
#include "template/testing/memory_files.h"
#include "template/testing/recording_link_notice.h"
#include "template/testing/scripted_asker.h"

namespace zorvane::checker::doubles {

using zorvane::doubles::Memory_Files;
using zorvane::doubles::Recording_Link_Notice;
using zorvane::doubles::Scripted_Asker;

std::optional<std::int32_t> readerStop(const std::string& text) {
    const std::string path = "/app/ABC.ZTP";
    Memory_Files files;
    files.put(path, text);
    Scripted_Asker asker;
    Recording_Link_Notice link;
    Declara_Zorvane document;
    PRO_Limpia_Modelo(document);
    PRO_Prepara_Lectura(document);
    const Reading_Services services{files, asker, link, "/app"};
    const bool whole = ignoringFailure([&] { PRO_Leer_INIFIle(document, services, path); });
    return whole ? std::nullopt : std::optional(document.Last_Line);
}

} // namespace zorvane::checker::doubles
