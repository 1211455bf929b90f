// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record.h"
#include "template/identity_section.h"
#include "template/model/declara_zorvane.h"
#include "template/services/files.h"

#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// Which values of the controller aren't the factory's: those of the document that it had before the run, but
/// for those that the run verified. Values that nobody can edit are none of them.
[[nodiscard]] std::vector<Record_Deviation> deviationsFrom(const Declara_Zorvane& factory,
                                                           const Declara_Zorvane& before,
                                                           const Identity_Section& section,
                                                           const std::vector<Record_Row>& rows);

/// The same from the record's template and the document that was kept before the run, at that path. Nothing
/// where the template isn't what it was for the run, or a file can't be read to its end.
[[nodiscard]] std::optional<std::vector<Record_Deviation>> deviationsOf(Files& files,
                                                                        const std::string& applicationFolder,
                                                                        const Record& record,
                                                                        const std::string& documentPath);

} // namespace zorvane::commission
