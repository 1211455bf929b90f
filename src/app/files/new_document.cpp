// SPDX-License-Identifier: MIT
#include "app/files/new_document.h"

#include "app/document/open_steps.h"
#include "template/services/offered_models.h"

namespace zorvane::app {

std::vector<std::string> modelsOnOffer(const App_Context& app) {
    std::vector<std::string> models;
    for (const Offered_Model& model : offeredModels(app.files, app.applicationFolder))
        models.push_back(model.stem);
    return models;
}

void newFromModel(const App_Context& app, const std::string& model) {
    File_To_Open opening;
    opening.path = app.applicationFolder + folderSeparator + "DEFAULT." + model;
    opening.newName = "UNTITLED." + model;
    openChosen(app, opening);
}

} // namespace zorvane::app
