// SPDX-License-Identifier: MIT
#include "template/services/offered_models.h"

#include "template/services/file_names.h"

namespace zorvane {

std::vector<Offered_Model> offeredModels(Files& files, const std::string& folder) {
    std::vector<Offered_Model> models;
    for (const std::string& name : files.list(folder)) {
        const auto [stem, extension] = splitName(name);
        if (extension == "ZTP") models.push_back({name, stem, filterItem(stem)});
    }
    return models;
}

} // namespace zorvane
