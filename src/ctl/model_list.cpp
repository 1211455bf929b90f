#include "ctl/model_list.h"

#include "values/code_page.h"

namespace zorvane {

std::vector<Offered_Model> offeredModels(Files& files, const std::string& folder) {
    std::vector<Offered_Model> models;
    for (const std::string& name : files.list(folder)) {
        const std::size_t dot = name.find('.');
        if (dot == std::string::npos || dot == 0 || upperTrimmed(name.substr(dot + 1)) != "ZTP") continue;
        const std::string stem = name.substr(0, dot);
        models.push_back({name, stem, stem + " Configuration (*." + stem + ")|*." + stem + "|"});
    }
    return models;
}

} // namespace zorvane
