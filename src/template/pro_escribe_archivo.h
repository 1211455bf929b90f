// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"
#include "template/services/files.h"

#include <string>

namespace zorvane {

/// Writes the document's values and column widths to a configuration file, over any file of that name.
/// `result` is empty on success, else the failure's description, and `Save_Failed` is then true; the file
/// stays as far as it was written.
void PRO_Escribe_Archivo(Declara_Zorvane& document, Files& files, const std::string& path,
                         std::string& result);

/// The same lines to any writer. Failures go to the caller.
void writeConfiguration(const Declara_Zorvane& document, Text_Writer& writer);

/// The same lines, but for those that can't be made: they are left out and the rest is written.
void writeWhatHolds(const Declara_Zorvane& document, Text_Writer& writer);

} // namespace zorvane
