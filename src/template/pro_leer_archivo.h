// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"
#include "template/services/asker.h"
#include "template/services/files.h"
#include "template/services/link_notice.h"

#include <string>

namespace zorvane {

/// What reading a file needs besides the document.
struct Reading_Services {
    Files& files;
    Asker& asker;
    Link_Notice& link;
    std::string applicationFolder; ///< as messages name it, without a separator at its end
};

/// Reads a template into the document and counts its ALWAYS blocks. A missing file is told to the user and
/// sets `Load_Failed`. A run-time failure leaves what was read so far in the document and goes to the caller;
/// `Last_Line` then names the line, or 0 for a failure after the last one.
void PRO_Leer_INIFIle(Declara_Zorvane& document, const Reading_Services& services, const std::string& path);

/// Reads a configuration file over the document. `ok` is true only if the whole file was read and no line was
/// rejected; the first rejected line ends the reading. A run-time failure leaves `ok` as it was.
void PRO_Leer_DefaultFIle(Declara_Zorvane& document, const Reading_Services& services,
                          const std::string& path, bool& ok);

} // namespace zorvane
