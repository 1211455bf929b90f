// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/files.h"

#include <string>
#include <vector>

namespace zorvane {

/// A template of the application folder, and the file type that it puts on offer.
struct Offered_Model {
    std::string file;
    std::string stem;   ///< before the first dot, as the file's name spells it
    std::string filter; ///< the entry of the Open dialog's list
};

/// The templates among the files of a folder: those whose name after its first dot is ZTP, in any letter case
/// and with blanks around it. A name that begins with a dot has no stem and counts for nothing.
[[nodiscard]] std::vector<Offered_Model> offeredModels(Files& files, const std::string& folder);

} // namespace zorvane
