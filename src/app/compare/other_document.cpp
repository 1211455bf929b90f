// SPDX-License-Identifier: MIT
#include "app/compare/other_document.h"

#include "template/pro_leer_archivo.h"
#include "template/services/file_names.h"
#include "values/numbers.h"

namespace zorvane::app {

namespace {

/// Each message counts as answered with Ok; what is wrong with a file the reading's end tells.
class Silent_Asker final : public Asker {
  public:
    int Msgb_Show(const std::string&, int, const std::string&) override { return Msgb_Code_Ok; }
};

/// The open document's link isn't the other one's.
class Unheard_Notices final : public Link_Notice {
  public:
    void SetTimings(std::int32_t, std::int32_t) override {}
    void SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) override {}
    void SetAddressBase(std::int32_t) override {}
};

std::string missing(const std::string& path) { return path + " isn't there. Choose another file."; }

/// What is wrong with a file that wasn't read to its end.
std::string broken(const std::string& path, std::int32_t line) {
    const std::string place = line > 0 ? " from line " + numberText(line) + " on" : "";
    return path + " was not read" + place +
           ". It was written for another template, or is damaged. Choose another file.";
}

} // namespace

Other_Document readOther(const App_Context& app, const std::string& templatePath,
                         const std::string& configurationPath) {
    Other_Document other{std::make_unique<Declara_Zorvane>(), {}};
    Declara_Zorvane& document = *other.document;
    Silent_Asker asker;
    Unheard_Notices notices;
    const Reading_Services services{app.files, asker, notices, app.applicationFolder};
    PRO_Limpia_Modelo(document);
    PRO_Prepara_Lectura(document);
    if (!app.files.exists(templatePath)) return {nullptr, missing(templatePath)};
    // A failure after the last line is one of the scan blocks' count, as at Open.
    const bool whole = ignoringFailure([&] { PRO_Leer_INIFIle(document, services, templatePath); });
    if (!whole && document.Last_Line > 0) return {nullptr, broken(templatePath, document.Last_Line)};
    if (configurationPath.empty()) return other;
    if (!app.files.exists(configurationPath)) return {nullptr, missing(configurationPath)};
    bool ok = true;
    const bool read =
        ignoringFailure([&] { PRO_Leer_DefaultFIle(document, services, configurationPath, ok); });
    if (!read || !ok) return {nullptr, broken(configurationPath, document.Last_Line)};
    takeName(document, configurationPath);
    return other;
}

std::string templateOfType(const App_Context& app, const std::string& type) {
    return app.applicationFolder + folderSeparator + templateName("." + type);
}

} // namespace zorvane::app
